// Lays out a table on pages of A4: a heading, a row of titles, and one row of boxes an entry. A row that does not fit
// goes on on the next page.
#pragma once

#include "output/Feuille.h"
#include "output/PagesComposees.h"

#include <QString>
#include <QStringList>

#include <vector>

class MesureDeTexte;
class MyLV;

class MiseEnPages
{
public:
    /// The rows are the entries of `table`, or those that are selected; their texts are in the font `nomDePolice`, in
    /// the size of the sheet's columns. Nothing is owned, all outlives this.
    MiseEnPages(const MyLV& table, Feuille feuille, const QString& nomDePolice, bool selection, MesureDeTexte& mesure);

    /// Goes on by so many rows at most. False when all are laid out.
    bool Avancer(int rangees);
    /// Entries that were looked at, of all that there are.
    int Fait() const { return m_entree - 1; }

    PagesComposees Pages; ///< whole once Avancer was false

private:
    struct Cellule
    {
        double hauteur;
        int deborde; ///< lines of it on this page, less one, where it goes on on the next; else -1
    };
    void CommencerPage();
    void ImprimerLibelle(const Feuille::Libelle& libelle);
    /// What a cell holds, cut into lines for its width.
    struct Lignes
    {
        QStringList textes;
        uint32_t police = 0;
        double hauteur = 0; ///< of a line
    };
    Lignes Couper(const QString& texte, double largeur, const PoliceDePage& police);
    Cellule ImprimerCellule(const Lignes& coupees, double x, double hauteur);
    void ImprimerTitres();
    void ImprimerBoites();
    void ImprimerRangee();
    void PoursuivreRangee(int deborde);

    const MyLV& m_table;
    Feuille m_feuille;
    PoliceDePage m_police;
    bool m_selection;
    MesureDeTexte& m_mesure;

    int m_entree = 1;
    double m_y;                   ///< of the row, on the sheet
    double m_hauteur = 0;         ///< of the row, on paper
    std::vector<Lignes> m_lignes; ///< of the row, by columns
    int m_premiere = 0;           ///< line of the cells that comes first on this page, from 0

    /// How a page began on which a row goes on: the pages that follow are the same where it begins so again.
    struct Suite
    {
        int premiere;
        double hauteurAvant;
        bool operator==(const Suite&) const = default;
    };
    std::vector<Suite> m_suites; ///< of the row
    int m_lignesFaites = 0;      ///< of its cells that go on, the most that were printed
};
