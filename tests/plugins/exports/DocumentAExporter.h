// A document as exporters see it, and a user who watches.
#pragma once

#include "Fin.h"
#include "TableExportee.h"
#include "extensions/plugins/FaceDocument.h"
#include "support/TableDeTest.h"

#include <QDir>

#include <functional>

class DocumentAExporter : public DocumentDeTest
{
public:
    TableExportee Tout() { return TableExportee(&face); }
    QStringList Fichiers() const
    {
        return QDir(dossier.Chemin()).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    }
    /// Entries "1", "2" … in one column, which take several packets.
    void Remplir(int nombre)
    {
        MettreColonnes(table, {QStringLiteral("Rang")});
        QStringList cellules;
        cellules.reserve(nombre);
        for (int i = 1; i <= nombre; ++i)
            cellules.append(QString::number(i));
        zelvane::Table(&face).AjouterLignes(cellules);
    }

    FaceDocument face{doc};
};

class Temoin : public Progression
{
public:
    bool Avancer(int64_t fait, int64_t total) override
    {
        pas.append({fait, total});
        return !aChaquePas || aChaquePas(static_cast<int>(pas.size()));
    }

    std::function<bool(int pas)> aChaquePas;
    QList<std::pair<int64_t, int64_t>> pas;
};
