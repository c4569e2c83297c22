// Finding an entry by the letters that the user types in a list.
#pragma once

#include <QString>

#include <chrono>
#include <functional>

class MyLV;
class QAbstractItemModel;

/// 1-based position of the first entry behind `apres` whose first column begins with `debut`, case ignored; the search
/// wraps round and comes to `apres` last. 0 when there is none or `debut` is empty. `apres` is 0 to the entries' count.
int ChercherDebut(const MyLV& table, const QString& debut, int apres);
/// The same among the rows of a list.
int ChercherDebut(const QAbstractItemModel& liste, const QString& debut, int apres);

/// Puts letters typed in quick succession together.
class SaisieRapide
{
public:
    using Instant = std::chrono::steady_clock::time_point;
    /// ChercherDebut in the list in which the user types.
    using Recherche = std::function<int(const QString& debut, int apres)>;

    /// Takes what was typed at `instant` and returns the entry to go to from `courante` (0: none yet), or 0.
    /// Letters that come later than `delai` after the last begin a new text. One letter repeated goes from one
    /// entry to the next.
    int Taper(const Recherche& chercher, const QString& lettres, int courante, Instant instant,
              std::chrono::milliseconds delai);
    /// True while a letter typed at `instant` would be put to those before.
    bool EnCours(Instant instant, std::chrono::milliseconds delai) const;

private:
    QString m_texte;
    Instant m_derniere;
};
