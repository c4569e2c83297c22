// The comparison of two categories: which entries of one are missing from the other, judged by one column of each.
//
// Both tables are sorted by their column, and one pass walks them side by side. Values are compared in capitals, by the
// codes of their characters, and equal ones pair off one by one. Where the order of the tables is another one than that
// of the codes (accents, punctuation), equal values can miss each other and be found missing from both: it is meant.
#pragma once

#include "base/Message.h"
#include "catalogue/table/MyLV.h"
#include "catalogue/table/TriPassager.h"

#include <QString>
#include <QStringView>

#include <algorithm>
#include <cstdint>
#include <vector>

/// The capitals of a value, as QString::toUpper makes them.
class Capitales
{
public:
    void Lire(const stockage::Cellule& cellule);
    QStringView Texte() const { return QStringView(m_texte).first(m_taille); }

private:
    QString m_texte; // room that is used again
    qsizetype m_taille = 0;
};

class Comparaison
{
public:
    /// Sorts both tables, by columns that count from 0; they are sorted back when the comparison goes.
    Comparaison(MyLV& a, int colonneA, MyLV& b, int colonneB);
    Comparaison(const Comparaison&) = delete;
    Comparaison& operator=(const Comparaison&) = delete;

    enum class Etape {
        Fusion,   ///< both tables side by side
        ResteDeB, ///< what is left of the second one alone
        ResteDeA, ///< and of the first one
        Finie,
        Rompue, ///< a table has gone or changed: there is nothing to be told, and nothing is read any more
    };
    Etape Ou() const;
    /// Goes on in the step that it is at, by so many entries at most, and says where it is then. Events may be let
    /// through between two calls.
    Etape Avancer(int entrees);

    /// How far it is: the sum of both positions, which count from 1, and Total at the end.
    int Fait() const { return std::min(m_a.position + m_b.position, Total()); }
    int Total() const { return m_a.nombre + m_b.nombre + 1; }

    /// Once it is finished, and once: fills the lists, which have their columns, with the entries of one table alone.
    /// All values go over; keys, images and markers do not.
    void Remplir(MyLV& seulesDeA, MyLV& seulesDeB);

private:
    /// An entry that was edited, and the row of the list that it goes to.
    struct Editee
    {
        int position;
        int ligne;
    };

    /// One of the tables, as it is walked through.
    struct Cote
    {
        Cote(MyLV& table, int colonne);
        bool AuBout() const { return position > nombre; }
        void LireValeur();
        void Suivante();
        void Retenir();
        void Remplir(MyLV& liste);

        MyLV& table;
        int colonne;
        TriPassager tri;
        int nombre;
        int position = 1;
        Capitales valeur;        ///< of the entry in the position
        stockage::Lignes seules; ///< slices of the table's bytes; empty ones for entries that were edited
        std::vector<Editee> editees;
    };

    void Comparer();

    Cote m_a;
    Cote m_b;
    Etape m_etape = Etape::Fusion;
};

/// Gives a list the columns of a table, with their widths, and no entries.
void CopierColonnes(MyLV& liste, const MyLV& table);

/// What keeps two tables from being compared: one has no entries. No text when nothing does.
Message RefusDeComparer(const MyLV& a, const MyLV& b);
/// What the user is told of a comparison of the files `a` and `b` that found so many entries in one of them alone;
/// empty when it found some on both sides.
QString Verdict(int seulesDeA, int seulesDeB, const QString& a, const QString& b);
/// What the window is called then.
QString TitreDesResultats(int seulesDeA, int seulesDeB);
