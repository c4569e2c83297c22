// Keeps the folders of open documents from programs that delete what nobody has used for some days.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

class Cadre;

/// Once an hour dates the last access to the folders that this run holds, their files and the rescue copies beside
/// them, where it is an hour old: what such programs go by. Dates of the last write stay, as the archive and the rescue
/// copy know files by them; what is known of unchanged files (Categorie::Archive) stays known.
class FraicheurDesDossiers
{
public:
    static constexpr qint64 Intervalle = 3'600'000; ///< milliseconds

    /// Does what is due at `heure`, a few milliseconds long. `heure`: milliseconds since 1970. A document whose archive
    /// is being written is left for later. True when there is more at once.
    bool Avancer(const Cadre& cadre, qint64 heure);

private:
    void Commencer(const Cadre& cadre);

    std::optional<qint64> m_derniere; ///< when the last round began
    QStringList m_dossiers;           ///< still to be done in this round; the last is the current one
    QStringList m_noms;               ///< files of the current one still to be done
    bool m_commence = false;          ///< whether they were listed
};
