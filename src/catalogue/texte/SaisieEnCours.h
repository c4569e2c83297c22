// What an open editor holds and the table does not: typed and not validated yet. It is part of the rescue copy that is
// written when the session or the process ends.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

struct SaisieEnCours
{
    enum class Cible {
        Entree,    ///< the entry at `position`
        Selection, ///< all selected entries; what is empty leaves theirs
        Ajout,     ///< a new entry, behind all others
    };

    Cible cible = Cible::Entree;
    int position = 0;    ///< from 1
    QStringList valeurs; ///< one a column, as typed: also with what a catalogue's text cannot hold
    QStringList textes;  ///< the pre-recorded texts of the columns
    QString image;       ///< bare file name, or empty
    bool operator==(const SaisieEnCours&) const = default;

    bool Touche(int entree, bool choisie) const
    {
        return cible == Cible::Entree ? entree == position : cible == Cible::Selection && choisie;
    }
};

/// Asks the editor; nothing when validating it now would write nothing.
using LireSaisie = std::function<std::optional<SaisieEnCours>()>;
