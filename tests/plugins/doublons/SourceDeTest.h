// A table in memory to look for groups in, and how their search is followed.
#pragma once

#include "ChercherDoublons.h"
#include "Suivi.h"

#include <QStringList>

#include <algorithm>
#include <string>

class SourceDeTest : public Source
{
public:
    /// `images`: those of the first rows; the others have none.
    explicit SourceDeTest(const QList<QStringList>& lignes, const QStringList& images = {})
        : m_lignes(lignes), m_images(images)
    {
    }
    int Lignes() const override { return static_cast<int>(m_lignes.size()); }
    int Colonnes() const override { return m_lignes.isEmpty() ? 1 : static_cast<int>(m_lignes.first().size()); }
    QStringList Lire(const QList<int>& colonnes, int premiere, int nombre) const override
    {
        QStringList cellules;
        for (int ligne = premiere; ligne < premiere + nombre && ligne <= Lignes(); ++ligne) {
            for (const int colonne : colonnes)
                cellules.append(m_lignes[ligne - 1].value(colonne - 1));
        }
        return cellules;
    }
    QStringList Images(int premiere, int nombre) const override { return m_images.mid(premiere - 1, nombre); }

private:
    QList<QStringList> m_lignes;
    QStringList m_images;
};

/// Gives up at the step of that number; never when it is negative.
class SuiviDeTest : public Suivi
{
public:
    explicit SuiviDeTest(int abandon = -1) : m_abandon(abandon) {}
    bool Avancer(double fait, double total) override
    {
        recule = recule || fait < m_fait || fait > total;
        m_fait = fait;
        return ++pas != m_abandon;
    }

    int pas = 0;
    bool recule = false;

private:
    int m_abandon;
    double m_fait = 0;
};

/// "1 4 6, 2 5"
inline std::string EnTexte(const Groupes& groupes)
{
    std::string texte;
    for (int groupe = 0; groupe < groupes.Count(); ++groupe) {
        texte += texte.empty() ? "" : ", ";
        for (int place = 0; place < groupes.Taille(groupe); ++place)
            texte += (place > 0 ? " " : "") + std::to_string(groupes.Ligne(groupe, place));
    }
    return texte;
}
