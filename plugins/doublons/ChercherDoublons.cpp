#include "ChercherDoublons.h"

#include "Regroupeur.h"
#include "Suivi.h"
#include "ValeursProches.h"

#include <algorithm>
#include <cstddef>
#include <functional>

namespace {

/// Rows that are read at once.
constexpr int Paquet = 4096;
/// Combinations of near values that are looked up: of one entry, and of all of them, for each one and besides.
constexpr int64_t CombinaisonsMax = 2048;
constexpr int64_t CombinaisonsParEntree = 64;
constexpr int64_t CombinaisonsEnPlus = 1000000;

/// Hands over every row of the chosen columns. False when it was given up.
class Parcours
{
public:
    Parcours(const Source& source, Suivi& suivi, double total)
        : m_source(source), m_suivi(suivi), m_lignes(source.Lignes()), m_total(total)
    {
    }

    using UneLigne = std::function<void(int ligne, const QString* cellules)>;
    bool Lire(const QList<int>& colonnes, const UneLigne& faire, const std::function<bool(int)>& utile = {})
    {
        for (int premiere = 1; premiere <= m_lignes; premiere += Paquet) {
            if (!m_suivi.Avancer(m_fait + double(premiere) / m_lignes, m_total))
                return false;
            const int fin = std::min(m_lignes + 1, premiere + Paquet);
            if (utile && !Une(premiere, fin, utile))
                continue;
            // Events ran meanwhile: the table may have gone.
            const QStringList cellules = m_source.Lire(colonnes, premiere, fin - premiere);
            if (cellules.size() != colonnes.size() * (fin - premiere))
                return false;
            for (int ligne = premiere; ligne < fin; ++ligne) {
                if (!utile || utile(ligne))
                    faire(ligne, &cellules[(ligne - premiere) * colonnes.size()]);
            }
        }
        m_fait += 1;
        return true;
    }
    int Lignes() const { return m_lignes; }
    double Fait() const { return m_fait; }
    double Total() const { return m_total; }
    void Passer() { m_fait += 1; }
    Suivi& Suivre() const { return m_suivi; }

private:
    static bool Une(int premiere, int fin, const std::function<bool(int)>& utile)
    {
        for (int ligne = premiere; ligne < fin; ++ligne) {
            if (utile(ligne))
                return true;
        }
        return false;
    }

    const Source& m_source;
    Suivi& m_suivi;
    int m_lignes;
    double m_total;
    double m_fait = 0;
};

bool EstVide(const QString& cellule)
{
    return QStringView(cellule).trimmed().isEmpty();
}

/// For each row the number of what it is in all columns together; Aucun for one that is left out.
using Numeros = std::vector<uint32_t>;

/// Rows of one number, in the order of the table.
class LignesParNumero
{
public:
    LignesParNumero(const Numeros& numeros, uint32_t nombre) : m_premieres(nombre, -1), m_suivantes(numeros.size(), -1)
    {
        std::vector<int> dernieres(nombre, -1);
        for (size_t i = 0; i < numeros.size(); ++i) {
            const uint32_t numero = numeros[i];
            if (numero == Regroupeur::Aucun)
                continue;
            int& derniere = dernieres[numero];
            (derniere < 0 ? m_premieres[numero] : m_suivantes[static_cast<size_t>(derniere)]) = static_cast<int>(i);
            derniere = static_cast<int>(i);
        }
    }
    void AjouterA(std::vector<int>& lignes, uint32_t numero) const
    {
        for (int i = m_premieres[numero]; i >= 0; i = m_suivantes[static_cast<size_t>(i)])
            lignes.push_back(i + 1);
    }

private:
    std::vector<int> m_premieres; // positions from 0; -1 for none
    std::vector<int> m_suivantes;
};

// ---- equal

std::optional<Groupes> ChercherEgales(const Demande& demande, Parcours& parcours, size_t lignes)
{
    const Hachage hachage;
    Regroupeur regroupeur;
    Numeros numeros(lignes, Regroupeur::Aucun);
    const bool lu = parcours.Lire(demande.colonnes, [&](int ligne, const QString* cellules) {
        Empreinte tout;
        int vides = 0;
        for (qsizetype i = 0; i < demande.colonnes.size(); ++i) {
            // Of two ways to write an accent, which look the same, one.
            const QString texte = cellules[i].normalized(QString::NormalizationForm_C);
            const QStringView net = QStringView(texte).trimmed();
            vides += int(net.isEmpty());
            tout = Hachage::Joindre(tout, hachage.De(net.utf16(), static_cast<size_t>(net.size()) * sizeof(char16_t)));
        }
        if ((demande.vides == Vides::SaufUne && vides > 0) ||
            (demande.vides == Vides::SaufToutes && vides == demande.colonnes.size()))
            return;
        numeros[static_cast<size_t>(ligne - 1)] = regroupeur.Numero(tout);
    });
    if (!lu)
        return std::nullopt;
    const LignesParNumero parNumero(numeros, regroupeur.Count());
    Groupes groupes;
    std::vector<int> ensemble;
    for (uint32_t numero = 0; numero < regroupeur.Count(); ++numero) {
        ensemble.clear();
        parNumero.AjouterA(ensemble, numero);
        if (ensemble.size() > 1)
            groupes.Ajouter(ensemble);
    }
    return groupes;
}

// ---- nearly equal

/// What the columns of the entries are, column by column. An entry that is alone in one of them is looked at no more.
class Rapprochement
{
public:
    Rapprochement(const Demande& demande, size_t lignes) : m_demande(demande), m_vivantes(lignes, true), m_vides(lignes)
    {
    }

    bool LireColonne(int colonne, Parcours& parcours)
    {
        m_colonnes.push_back({ValeursProches(m_hachage), Numeros(m_vivantes.size(), Regroupeur::Aucun)});
        Colonne& ici = m_colonnes.back();
        const bool lue = parcours.Lire(
            {colonne},
            [&](int ligne, const QString* cellule) {
                const auto i = static_cast<size_t>(ligne - 1);
                if (EstVide(*cellule)) {
                    ++m_vides[i];
                    if (m_demande.vides == Vides::SaufUne) {
                        m_vivantes[i] = false;
                        return;
                    }
                }
                ici.numeros[i] = ici.valeurs.Numero(*cellule);
            },
            [this](int ligne) { return m_vivantes[static_cast<size_t>(ligne - 1)]; });
        if (!lue || !ici.valeurs.Comparer(parcours.Suivre(), parcours.Fait(), parcours.Total()))
            return false;
        parcours.Passer();
        Eclaircir(ici);
        return true;
    }

    std::optional<Groupes> Grouper(Parcours& parcours)
    {
        Numeros numeros = Ensemble();
        const LignesParNumero parNumero(numeros, m_regroupeur.Count());
        std::vector<bool> pris(m_regroupeur.Count(), false);
        m_combinaisons = CombinaisonsEnPlus + CombinaisonsParEntree * int64_t{m_regroupeur.Count()};
        Groupes groupes;
        std::vector<int> ensemble;
        for (size_t i = 0; i < numeros.size(); ++i) {
            if (i % Paquet == 0 &&
                !parcours.Suivre().Avancer(parcours.Fait() + double(i) / double(numeros.size()), parcours.Total()))
                return std::nullopt;
            const uint32_t numero = numeros[i];
            if (numero == Regroupeur::Aucun || pris[numero])
                continue;
            ensemble.clear();
            for (const uint32_t proche : Proches(i)) {
                if (!pris[proche])
                    parNumero.AjouterA(ensemble, proche);
                pris[proche] = true;
            }
            std::sort(ensemble.begin(), ensemble.end());
            if (ensemble.size() > 1)
                groupes.Ajouter(ensemble);
        }
        parcours.Passer();
        return groupes;
    }

private:
    struct Colonne
    {
        ValeursProches valeurs;
        Numeros numeros; ///< of the value of each row
    };

    void Eclaircir(const Colonne& colonne)
    {
        std::vector<uint32_t> combien(colonne.valeurs.Count(), 0);
        for (size_t i = 0; i < m_vivantes.size(); ++i) {
            if (m_vivantes[i])
                ++combien[colonne.numeros[i]];
        }
        for (size_t i = 0; i < m_vivantes.size(); ++i) {
            const uint32_t numero = colonne.numeros[i];
            if (m_vivantes[i] && combien[numero] < 2 && colonne.valeurs.Voisins(numero).empty())
                m_vivantes[i] = false;
        }
    }

    Empreinte EmpreinteDe(const std::vector<uint32_t>& valeurs) const
    {
        return m_hachage.De(valeurs.data(), valeurs.size() * sizeof(uint32_t));
    }

    Numeros Ensemble()
    {
        Numeros numeros(m_vivantes.size(), Regroupeur::Aucun);
        std::vector<uint32_t> valeurs(m_colonnes.size());
        for (size_t i = 0; i < m_vivantes.size(); ++i) {
            if (!m_vivantes[i] || (m_demande.vides == Vides::SaufToutes && m_vides[i] == m_demande.colonnes.size()))
                continue;
            for (size_t c = 0; c < m_colonnes.size(); ++c)
                valeurs[c] = m_colonnes[c].numeros[i];
            numeros[i] = m_regroupeur.Numero(EmpreinteDe(valeurs));
        }
        return numeros;
    }

    /// The numbers of the entries that are near to this one in every column, its own first.
    std::vector<uint32_t> Proches(size_t ligne)
    {
        std::vector<uint32_t> valeurs(m_colonnes.size());
        for (size_t c = 0; c < m_colonnes.size(); ++c)
            valeurs[c] = m_colonnes[c].numeros[ligne];
        std::vector<uint32_t> trouves;
        const int64_t permises = std::clamp<int64_t>(m_combinaisons, 1, CombinaisonsMax);
        int64_t reste = permises;
        Combiner(0, valeurs, trouves, reste);
        m_combinaisons -= permises - reste;
        return trouves;
    }
    // NOLINTNEXTLINE(misc-no-recursion): as deep as there are columns
    void Combiner(size_t c, std::vector<uint32_t>& valeurs, std::vector<uint32_t>& trouves, int64_t& reste) const
    {
        if (reste <= 0)
            return;
        if (c == m_colonnes.size()) {
            --reste;
            const uint32_t numero = m_regroupeur.Chercher(EmpreinteDe(valeurs));
            if (numero != Regroupeur::Aucun)
                trouves.push_back(numero);
            return;
        }
        Combiner(c + 1, valeurs, trouves, reste);
        const uint32_t propre = valeurs[c];
        for (const uint32_t voisin : m_colonnes[c].valeurs.Voisins(propre)) {
            valeurs[c] = voisin;
            Combiner(c + 1, valeurs, trouves, reste);
        }
        valeurs[c] = propre;
    }

    const Demande& m_demande;
    const Hachage m_hachage;
    std::vector<Colonne> m_colonnes;
    std::vector<bool> m_vivantes;
    std::vector<uint32_t> m_vides; // empty cells so far
    Regroupeur m_regroupeur;
    int64_t m_combinaisons = 0; // left to look up
};

std::optional<Groupes> ChercherPresque(const Demande& demande, Parcours& parcours, size_t lignes)
{
    Rapprochement rapprochement(demande, lignes);
    for (const int colonne : demande.colonnes) {
        if (!rapprochement.LireColonne(colonne, parcours))
            return std::nullopt;
    }
    return rapprochement.Grouper(parcours);
}

// ---- what is known of the entries in groups

/// What a filled cell weighs: more than any length of texts.
constexpr uint64_t UneCellule = uint64_t{1} << 40;

/// An image weighs as much as a filled cell.
void CompterImages(const Source& source, const std::vector<bool>& dedans, std::vector<uint64_t>& poids)
{
    constexpr size_t Bloc = 4096;
    for (size_t premiere = 0; premiere < dedans.size(); premiere += Bloc) {
        const size_t fin = std::min(premiere + Bloc, dedans.size());
        const auto debut = dedans.begin() + static_cast<std::ptrdiff_t>(premiere);
        if (std::find(debut, dedans.begin() + static_cast<std::ptrdiff_t>(fin), true) == dedans.end())
            continue;
        const QStringList images = source.Images(static_cast<int>(premiere) + 1, static_cast<int>(fin - premiere));
        for (size_t i = premiere; i < fin; ++i)
            poids[i] += images.value(static_cast<qsizetype>(i - premiere)).isEmpty() ? 0 : UneCellule;
    }
}

bool Completer(Groupes& groupes, const Source& source, const Demande& demande, Parcours& parcours)
{
    const auto lignes = static_cast<size_t>(parcours.Lignes());
    std::vector<bool> dedans(lignes, false);
    for (int groupe = 0; groupe < groupes.Count(); ++groupe) {
        for (int place = 0; place < groupes.Taille(groupe); ++place)
            dedans[static_cast<size_t>(groupes.Ligne(groupe, place) - 1)] = true;
    }
    QList<int> colonnes;
    colonnes.reserve(source.Colonnes());
    for (int colonne = 1; colonne <= source.Colonnes(); ++colonne)
        colonnes.append(colonne);
    std::vector<uint64_t> poids(lignes, 0);
    std::vector<bool> pretees(lignes, false);
    const bool lu = parcours.Lire(
        colonnes,
        [&](int ligne, const QString* cellules) {
            const auto i = static_cast<size_t>(ligne - 1);
            uint64_t remplies = 0;
            uint64_t longueur = 0;
            for (qsizetype c = 0; c < colonnes.size(); ++c) {
                remplies += EstVide(cellules[c]) ? 0 : UneCellule;
                longueur += static_cast<uint64_t>(cellules[c].size());
            }
            poids[i] = remplies + std::min(longueur, UneCellule - 1);
            pretees[i] = demande.colonnePret > 0 && !cellules[demande.colonnePret - 1].isEmpty();
        },
        [&dedans](int ligne) { return dedans[static_cast<size_t>(ligne - 1)]; });
    if (!lu)
        return false;
    CompterImages(source, dedans, poids);
    for (int groupe = 0; groupe < groupes.Count(); ++groupe) {
        const auto poidsDe = [&](int place) { return poids[static_cast<size_t>(groupes.Ligne(groupe, place) - 1)]; };
        int meilleure = 0;
        for (int place = 1; place < groupes.Taille(groupe); ++place)
            meilleure = poidsDe(place) > poidsDe(meilleure) ? place : meilleure;
        groupes.NommerComplete(groupe, meilleure);
    }
    groupes.MarquerPretees(std::move(pretees));
    return true;
}

} // namespace

std::optional<Groupes> ChercherDoublons(const Source& source, const Demande& demande, Suivi& suivi)
{
    const bool presque = demande.mesure == Mesure::PresqueEgales;
    Parcours parcours(source, suivi, presque ? 2.0 * double(demande.colonnes.size()) + 2 : 2.0);
    const auto lignes = static_cast<size_t>(parcours.Lignes());
    std::optional<Groupes> groupes =
        presque ? ChercherPresque(demande, parcours, lignes) : ChercherEgales(demande, parcours, lignes);
    if (!groupes || !Completer(*groupes, source, demande, parcours))
        return std::nullopt;
    return groupes;
}
