// The columns of a category that is being defined: titles in order, the one in hand, and which one is dependant.
#pragma once

#include "catalogue/texte/LectureQrt.h"

#include <QString>
#include <QStringList>

/// Positions count from 1; 0 is none. Starts with one empty title, chosen. Titles may be empty while the user works.
class ColonnesDeCategorie
{
public:
    const QStringList& Titres() const { return m_titres; }
    int Nombre() const { return static_cast<int>(m_titres.size()); }

    /// The position in hand, and its title: empty when none is.
    int Choisie() const { return m_choisie; }
    QString TitreChoisi() const { return m_titres.value(m_choisie - 1); }
    /// A position outside 1 to Nombre chooses none. A title that Enchainer added goes, unless it is the one chosen.
    void Choisir(int position);

    /// The title in hand is the loan column's: it can be neither renamed nor deleted. That also holds for one that the
    /// user typed, from the letter that completed it, and is meant.
    bool TitreFige() const { return TitreChoisi() == TitrePrete(); }
    /// Gives the column in hand a title without "|" and line breaks, which the catalogue file cannot hold. Nothing
    /// happens with none in hand, or when it is frozen.
    void Renommer(const QString& titre);

    /// Takes an empty title in hand, the last one there is; adds one at the end when there is none.
    void Ajouter();
    /// The same for who types title after title: the one added goes by itself when nothing was done with it.
    void Enchainer();
    /// Deletes the column in hand once the user agrees ("msg57"), and takes the one before in hand; the loan column is
    /// refused ("msg56"). True when it is gone. The choice of the dependant column goes with its column.
    bool Supprimer();

    /// Whether the user has given a title to any column.
    bool ADesTitres() const;
    /// Takes `titres` (at least one) instead of all columns, the first of them in hand and none dependant. Whether
    /// there is a dependant column stays as it is.
    void Remplacer(const QStringList& titres);

    bool PeutMonter() const { return m_choisie > 1; }
    bool PeutDescendre() const { return m_choisie > 0 && m_choisie < Nombre(); }
    /// Moves the column in hand by one place, where it can. A dependant column that was chosen is then the moved one,
    /// whichever it was before: that is meant.
    void Monter();
    void Descendre();

    /// Whether the category has a dependant column, and the one chosen for it. The choice stays while there is none.
    bool Dependant = false;
    int DependanteChoisie() const { return m_dependante; }
    void ChoisirDependante(int position);
    /// The dependant column of the category; 0 for none.
    int Dependante() const { return Dependant ? m_dependante : 0; }

    /// Whether the category can be made; tells what is missing ("msg53" to "msg55"). A title that Enchainer added and
    /// nobody touched goes first.
    bool Verifier();

private:
    bool Existe(int position) const { return position >= 1 && position <= Nombre(); }
    void Echanger(int position, int voisine);
    void LacherIntacte();

    QStringList m_titres{QString()};
    int m_choisie = 1;
    int m_dependante = 0;
    bool m_intacte = false; ///< the last title is in hand, was added by Enchainer and not touched since
};
