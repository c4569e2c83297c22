// The commands of zelvane-cli.
#pragma once

#include "cli/LigneDeCommande.h"

#include <QList>
#include <QString>

/// Exit status of a command.
enum Statut { Fait = 0, Echec = 1, MauvaisUsage = 2 };

class SortieStandard;

struct Commande
{
    QString nom;       ///< one word, or two where one word stands for several commands: "column add"
    QString arguments; ///< as the help shows them
    int nombreArguments;
    QString explication; ///< one line for the help
    QList<OptionConnue> options;
    Statut (*executer)(const LigneDeCommande& ligne);
};

/// All commands, in the order of the help.
const QList<Commande>& LesCommandes();

/// One line on standard error that says what is wrong and names the help.
Statut RefuserUsage(const QString& erreur, const QString& commande = QString());

/// Ends the output. A reader that went away had what it wanted; output that is lost is told and is a failure.
Statut FinirSortie(SortieStandard& sortie);
