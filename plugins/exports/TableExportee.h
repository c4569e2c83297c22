// What is exported: the table of a document as it was when the export began, about a thousand rows at a time.
#pragma once

#include <ZelvanePlugin.h>

#include <optional>

class TableExportee
{
public:
    explicit TableExportee(QObject* document);

    /// The name of the category's file, without ".qrt"; empty for one that was never saved.
    const QString& Nom() const { return m_nom; }
    const QStringList& Titres() const { return m_titres; }
    int Colonnes() const { return static_cast<int>(m_titres.size()); }
    int Lignes() const { return m_lignes; }
    /// Columns from 1; 0 for none.
    int ColonnePrete() const { return m_colonnePrete; }
    int ColonneDependante() const { return m_colonneDependante; }

    struct Paquet
    {
        int lignes;
        QStringList cellules; ///< row by row, as many of each as there are columns
        QStringList images;   ///< one a row, empty for none
    };
    /// The rows from `premiere` (from 1) on, at least one while there are some. Nothing once the table has other rows
    /// or columns than it had, or is gone: events run while a file is written.
    std::optional<Paquet> Lire(int premiere) const;

    /// How many cells are held at a time, so few since each may be long; a row of more is one packet.
    static constexpr int CellulesParPaquet = 6'000;

private:
    zelvane::Table m_table;
    QString m_nom;
    QStringList m_titres;
    int m_lignes;
    int m_colonnePrete;
    int m_colonneDependante;
};
