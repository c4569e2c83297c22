// When the rescue copy of one document is written: after changes, while the user pauses, and not too often.
#pragma once

#include "catalogue/documents/CopieDeSecours.h"

#include <QString>

#include <cstdint>
#include <future>
#include <memory>
#include <optional>

class Categorie;

/// Milliseconds of a clock that only goes forward.
struct MomentDeSecours
{
    qint64 maintenant = 0;
    qint64 derniereTouche = 0; ///< when the user last touched a key or the mouse
};

class SecoursDuDocument
{
public:
    static constexpr qint64 Pause = 2000;       ///< without touches and without changes
    static constexpr qint64 Intervalle = 30000; ///< between two copies, and between two tries on a full disk

    /// Does what there is to do, a few milliseconds long: a copy of unsaved changes, or, once they are saved and on the
    /// disk, no more than whose folder it is. `nom`: the window's caption. True when it has more to do at once.
    bool Avancer(const Categorie& doc, const QString& nom, const MomentDeSecours& moment);

    /// Writes the copy of unsaved changes whole, whenever the last one was, and with what is being typed; that stays
    /// there until Reprendre. False when it fails.
    bool EcrireMaintenant(const Categorie& doc, const QString& nom);
    /// Whether the copy holds what was being typed: the folder must not go without it.
    bool TientSaisie() const { return m_tientSaisie; }

    /// Whether something is being typed of which the user has not decided and that no copy holds.
    bool SaisieADemander(const Categorie& doc) const;
    /// The user has given up as the session ends what was being typed, and `changements`, the document's changes.
    void Abandonner(bool changements);
    /// The session goes on after all. True when changes that were given up are changes again.
    bool Reprendre();

private:
    /// What a copy was made of; a document that shows another one has changed.
    struct Etat
    {
        uint64_t generation = 0;
        int dependante = 0;
        QString chemin;
        QString type;
        QString nom;
        std::optional<TraceDeFichier> fichier;
        bool tus = false;
        bool operator==(const Etat&) const = default;
    };
    static Etat EtatDe(const Categorie& doc, const QString& nom);

    /// A file that was saved: another one at each save.
    struct Depot
    {
        QString chemin;
        std::shared_ptr<const ArchiveConnue> archive;
        bool operator==(const Depot&) const = default;
    };

    void Oublier();
    std::optional<SaisieEnCours> SaisieDe(const Categorie& doc) const;
    bool EcrireAvecSaisie(const Categorie& doc, const QString& nom, SaisieEnCours saisie);
    bool EstSurLeDisque(const Categorie& doc);
    void TenirIdentite(const Categorie& doc, const QString& nom);
    bool CopieParleEncore() const;
    bool Continuer(const Categorie& doc, const QString& nom, qint64 maintenant);
    void Finir(EcritureDeSecours::Etat issue);

    Etat m_vu;
    qint64 m_vuDepuis = 0;
    std::optional<Etat> m_copie;    ///< what the copy on the disk holds
    std::optional<Etat> m_identite; ///< the same, for one without a text
    std::optional<qint64> m_derniere;
    std::unique_ptr<EcritureDeSecours> m_ecriture;
    Depot m_depot; ///< what m_forcage sees to, or saw to last
    std::future<bool> m_forcage;
    bool m_perimee = false; ///< what is being written is of no use any more
    bool m_tientSaisie = false;
    bool m_saisieAbandonnee = false;
    bool m_changementsAbandonnes = false;
};
