// The sheets of a spreadsheet, as the text of its content.xml: made piece by piece while the package is being written.
#pragma once

#include "ColonneOds.h"
#include "Fin.h"
#include "TableExportee.h"

#include <QByteArray>

#include <vector>

/// Rows of a sheet, its titles among them, and columns.
struct LimitesOds
{
    int lignes = 1'048'576;
    int colonnes = 16'384;
};

/// Titles of what the table itself has none for, in the language of the user.
struct TitresOds
{
    QString feuille; ///< of a category without a name
    QString image;   ///< the column of images
};

class ContenuOds
{
public:
    ContenuOds(const TableExportee& contenu, TitresOds titres, Progression& progression, LimitesOds limites = {});

    /// Looks at all entries once: from then on the rest is known.
    Fin Examiner();
    /// The names of the sheets. Each has its titles.
    QStringList Feuilles() const;
    /// Of content.xml, in bytes.
    int64_t Taille() const;

    /// Begins anew.
    void Recommencer();
    /// The next piece, until it is empty: then all is written, or Fin tells why not.
    const QByteArray& Suivant();
    Fin Etat() const { return m_etat; }

private:
    QByteArray Entete() const;
    QByteArray DebutDeFeuille(const QString& nom) const;
    int LignesParFeuille() const { return m_limites.lignes - 1; }
    void AjouterLignes(const TableExportee::Paquet& paquet);
    void AjouterLigne(const TableExportee::Paquet& paquet, int ligne);
    qsizetype ColonnesEcrites() const;
    const ColonneOds& Colonne(qsizetype rang) const { return m_colonnes[static_cast<size_t>(rang)]; }

    const TableExportee& m_contenu;
    TitresOds m_titres;
    Progression& m_progression;
    LimitesOds m_limites;
    std::vector<ColonneOds> m_colonnes; ///< the last one is that of the images
    Fin m_etat = Fin::Faite;
    QStringList m_feuilles;
    int m_ligne = 0; ///< the next one; 0 before the start, more than there are behind the end
    QByteArray m_morceau;
};
