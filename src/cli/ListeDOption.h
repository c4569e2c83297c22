// Options that take a list of numbers. What is wrong with one is told.
#pragma once

#include "cli/LigneDeCommande.h"
#include "cli/ListeDeNombres.h"

#include <QString>

#include <optional>

class Categorie;

/// Reads the list of an option into `liste`, which stays empty without the option; false when it is none.
bool LireListe(const LigneDeCommande& ligne, const QString& option, const QString& commande,
               std::optional<ListeDeNombres>& liste);

/// Selects the entries that the list of the option "select" names, and them alone; false when it names something else.
bool SelectionnerEntrees(const LigneDeCommande& ligne, const ListeDeNombres& liste, const QString& commande,
                         Categorie& doc);
