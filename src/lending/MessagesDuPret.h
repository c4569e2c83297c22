// What lending tells and asks, in the windows and on the command line.
#pragma once

#include "lending/Contacts.h"

#include <QString>

class QrtClass;

/// False, with a word, when no entry is selected.
bool AUneSelection(const QrtClass& doc);
/// There is no loan column.
void DireColonneDisparue();
/// Nobody was named to lend to.
void DireNomManquant();
/// Whether a loan takes the place of one that stands there.
bool AccepterRemplacement();
/// Whether all of the selected entries came back.
bool AccepterRetour();

/// Tells what of the list could not be read, if anything.
void DireContactsManquants(const ContactsLus& lus);
/// Whether a list may take the place of contacts that it does not hold.
bool AccepterPerteDeContacts();
/// The list could not be written to the settings file `fichier`.
void DireContactsNonEcrits(const QString& fichier);
/// Adds the borrower to the list. When that fails it is told: the loan does not depend on it.
void InscrireEmprunteur(const QString& fichier, const Contact& contact);
