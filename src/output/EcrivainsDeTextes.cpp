// Ecrivain.h: the framed text, and the texts whose values are parted by semicolons or tabs. No value is quoted.
#include "output/Ecrivain.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;
using stockage::Cellule;
using stockage::Codage;
using stockage::EntreeStockee;

namespace {

int Chiffres(int nombre)
{
    int chiffres = 1;
    for (; nombre > 9; nombre /= 10)
        ++chiffres;
    return chiffres;
}

/// In characters, as the length of any text here.
qsizetype Longueur(const Cellule& cellule)
{
    return cellule.codage == Codage::Cp1252 || cellule.EstAscii() ? static_cast<qsizetype>(cellule.taille)
                                                                  : cellule.Texte().size();
}

/// There is room for eleven columns; the ones behind are neither measured nor written.
class TexteEncadre : public Ecrivain
{
public:
    explicit TexteEncadre(const SujetExport& sujet)
        : Ecrivain(sujet), m_mesurees(sujet.Cochees(1, std::min(sujet.Colonnes(), Place))),
          // The last column is measured, but never written unless it is the first one too. It is meant.
          m_ecrites(sujet.Cochees(1, std::clamp(sujet.Colonnes() - 1, std::min(sujet.Colonnes(), 1), Place)))
    {
    }

    bool DoitMesurer() const override { return true; }
    void Mesurer(const EntreeStockee& entree) override;
    void EcrireTete(PlumeExport& plume) override;
    void EcrireEntree(PlumeExport& plume, int numero, const EntreeStockee& entree) override;
    void EcrirePied(PlumeExport& plume) override;

private:
    static constexpr int Place = 11;

    void PreparerRemplissage();

    std::vector<int> m_mesurees;
    std::vector<int> m_ecrites;
    std::array<qsizetype, Place> m_largeurMax{};
    std::array<qsizetype, Place> m_remplissage{}; ///< how many blanks a value takes its own from
};

void TexteEncadre::Mesurer(const EntreeStockee& entree)
{
    for (const int colonne : m_mesurees) {
        qsizetype& largeur = m_largeurMax[static_cast<size_t>(colonne - 1)];
        largeur = std::max(largeur, Longueur(entree.Champ(colonne - 1)));
    }
}

void TexteEncadre::PreparerRemplissage()
{
    std::transform(m_largeurMax.begin(), m_largeurMax.end(), m_remplissage.begin(),
                   [](qsizetype largeur) { return largeur + 1; });
    // The last column with content gets none, but for one in the last place. It is meant.
    for (size_t i = Place - 1; i > 0 && m_largeurMax[i] == 0; --i)
        m_remplissage[i - 1] = 0;
}

void TexteEncadre::EcrireTete(PlumeExport& plume)
{
    PreparerRemplissage();
    plume.Ascii("        \\\\\\|///\r\n"
                "       \\\\ - - //\r\n"
                "        ( @ @ )\r\n"
                "----oOOo--(_)-oOOo-------------------");
    plume.Texte(Sujet().nom);
    plume.Ascii(" : ");
    plume.Nombre(Sujet().Entrees());
    plume.Ascii("--------------------------------\r\n"
                "\r\n");
}

void TexteEncadre::EcrireEntree(PlumeExport& plume, int numero, const EntreeStockee& entree)
{
    if (Sujet().choix.numeroter) {
        plume.Ascii("-");
        plume.Blancs(Chiffres(Sujet().Entrees()) - Chiffres(numero));
        plume.Nombre(numero);
        plume.Ascii(" :");
    } else {
        plume.Ascii("- ");
    }
    for (const int colonne : m_ecrites) {
        const Cellule valeur = entree.Champ(colonne - 1);
        // Behind an empty value there are no blanks, and the rest of the line stands further left. It is meant.
        if (valeur.taille == 0)
            continue;
        plume.Champ(valeur);
        plume.Blancs(m_remplissage[static_cast<size_t>(colonne - 1)] - Longueur(valeur) + 1);
    }
    plume.FinDeLigne();
}

void TexteEncadre::EcrirePied(PlumeExport& plume)
{
    plume.Ascii("\r\n"
                "------------------------------------Zelvane v2.2 by Morvenal------------------------------------\r\n");
}

/// Writes values with a separator between them.
class LigneSeparee
{
public:
    LigneSeparee(PlumeExport& plume, char separateur) : m_plume(plume), m_separateur(separateur) {}

    void Champ(const Cellule& cellule)
    {
        Separer();
        m_plume.Champ(cellule);
    }
    void Texte(const QString& texte)
    {
        Separer();
        m_plume.Texte(texte);
    }
    void Nombre(int nombre)
    {
        Separer();
        m_plume.Nombre(nombre);
    }
    void Octets(const std::string& octets)
    {
        Separer();
        m_plume.Octets(octets.data(), octets.size());
    }

private:
    void Separer()
    {
        if (m_commencee)
            m_plume.Octets(&m_separateur, 1);
        m_commencee = true;
    }

    PlumeExport& m_plume;
    char m_separateur;
    bool m_commencee = false;
};

/// Texts of one line an entry: numbers, then the values of some columns.
class TexteSepare : public Ecrivain
{
public:
    TexteSepare(const SujetExport& sujet, char separateur, std::vector<int> colonnes)
        : Ecrivain(sujet), m_separateur(separateur), m_colonnes(std::move(colonnes)),
          m_commeLaSource(static_cast<int>(m_colonnes.size()) == sujet.Colonnes() &&
                          sujet.Colonnes() == sujet.table.ColonnesSource())
    {
    }

    void EcrireEntree(PlumeExport& plume, int numero, const EntreeStockee& entree) override
    {
        LigneSeparee ligne(plume, m_separateur);
        if (Sujet().choix.numeroter)
            ligne.Nombre(numero);
        if (m_commeLaSource && entree.EstReguliere()) {
            EcrireTranche(plume, ligne, entree.ToutesEnUne());
        } else {
            for (const int colonne : m_colonnes)
                ligne.Champ(entree.Champ(colonne - 1));
        }
        plume.FinDeLigne();
    }
    void EcrirePied(PlumeExport&) override {}

private:
    /// All values at once: a slice holds them in their order, and the image behind the last "|".
    void EcrireTranche(PlumeExport& plume, LigneSeparee& ligne, Cellule tranche)
    {
        tranche.taille = static_cast<uint32_t>(tranche.octets().lastIndexOf('|'));
        const QByteArrayView octets = plume.EnOctets(tranche);
        m_valeurs.assign(octets.begin(), octets.end());
        std::replace(m_valeurs.begin(), m_valeurs.end(), '|', m_separateur);
        ligne.Octets(m_valeurs);
    }

    char m_separateur;
    std::vector<int> m_colonnes;
    bool m_commeLaSource; ///< slices have the fields that are written, and no others
    std::string m_valeurs;
};

class PointsVirgules : public TexteSepare
{
public:
    explicit PointsVirgules(const SujetExport& sujet) : TexteSepare(sujet, ';', sujet.Cochees(1, sujet.Colonnes())) {}

    /// One semicolon more than the lines of the entries have. It is meant.
    void EcrireTete(PlumeExport& plume) override
    {
        if (Sujet().choix.numeroter)
            plume.Texte(u"N°;"_s);
        for (const int colonne : Sujet().Cochees(1, Sujet().Colonnes())) {
            plume.Texte(Sujet().Titre(colonne));
            plume.Ascii(";");
        }
        plume.FinDeLigne();
    }
};

/// From the second column on it is the tick of the column before that decides. It is meant.
class Tabulations : public TexteSepare
{
public:
    explicit Tabulations(const SujetExport& sujet) : TexteSepare(sujet, '\t', Valeurs(sujet)) {}

    /// The title of the first column is always there. It is meant.
    void EcrireTete(PlumeExport& plume) override
    {
        LigneSeparee ligne(plume, '\t');
        if (Sujet().choix.numeroter)
            ligne.Texte(u"N°"_s);
        if (Sujet().Colonnes() > 0)
            ligne.Texte(Sujet().Titre(1));
        for (const int colonne : Sujet().Cochees(1, Sujet().Colonnes() - 1))
            ligne.Texte(Sujet().Titre(colonne + 1));
        plume.FinDeLigne();
    }

private:
    static std::vector<int> Valeurs(const SujetExport& sujet)
    {
        std::vector<int> colonnes = sujet.Cochees(1, std::min(sujet.Colonnes(), 1));
        for (const int colonne : sujet.Cochees(1, sujet.Colonnes() - 1))
            colonnes.push_back(colonne + 1);
        return colonnes;
    }
};

} // namespace

std::unique_ptr<Ecrivain> EcrivainTexteEncadre(const SujetExport& sujet)
{
    return std::make_unique<TexteEncadre>(sujet);
}

std::unique_ptr<Ecrivain> EcrivainPointsVirgules(const SujetExport& sujet)
{
    return std::make_unique<PointsVirgules>(sujet);
}

std::unique_ptr<Ecrivain> EcrivainTabulations(const SujetExport& sujet)
{
    return std::make_unique<Tabulations>(sujet);
}
