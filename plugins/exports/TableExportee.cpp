#include "TableExportee.h"

#include <algorithm>

namespace {

QString SansExtension(QString fichier)
{
    if (fichier.endsWith(QStringLiteral(".qrt"), Qt::CaseInsensitive))
        fichier.chop(4);
    return fichier;
}

/// A column that a property of the document names; 0 for none, whatever the property says of that.
int ColonneDe(const QObject* document, const char* propriete, qsizetype colonnes)
{
    const int colonne = document ? document->property(propriete).toInt() : 0;
    return colonne >= 1 && colonne <= colonnes ? colonne : 0;
}

} // namespace

TableExportee::TableExportee(QObject* document)
    : m_table(document), m_nom(document ? SansExtension(document->property("filename").toString()) : QString()),
      m_titres(m_table.Titres()), m_lignes(m_table.Lignes()),
      m_colonnePrete(ColonneDe(document, "IndexColPrete", m_titres.size())),
      m_colonneDependante(ColonneDe(document, "dependantcol", m_titres.size()))
{
}

std::optional<TableExportee::Paquet> TableExportee::Lire(int premiere) const
{
    const int parPaquet = std::max(1, CellulesParPaquet / std::max(1, Colonnes()));
    Paquet paquet;
    paquet.lignes = std::clamp(m_lignes - premiere + 1, 0, parPaquet);
    paquet.cellules = m_table.LireLignes(premiere, paquet.lignes);
    paquet.images = m_table.LireImages(premiere, paquet.lignes);
    const bool entier =
        paquet.cellules.size() == qsizetype{paquet.lignes} * Colonnes() && paquet.images.size() == paquet.lignes;
    if (!entier || m_table.Lignes() != m_lignes || m_table.Colonnes() != Colonnes())
        return std::nullopt;
    return paquet;
}
