// A document to export, and where the export goes.
#pragma once

#include "output/EcrireExport.h"
#include "platform/PageDeCode.h"
#include "support/TableDeTest.h"

#include <QBuffer>

#include <gtest/gtest.h>

/// Bytes of the code page.
inline QByteArray EnHuitBits(const QByteArray& utf8)
{
    return PageDeCode::VersOctets(QString::fromUtf8(utf8));
}

class ExportDeTest : public testing::Test
{
protected:
    ExportDeTest() { d.doc.SetCheminReel("/ailleurs/été.qrt"); }

    /// All columns are ticked until others are.
    void Colonnes(const QStringList& titres)
    {
        MettreColonnes(d.table, titres);
        choix.colonnes.assign(static_cast<size_t>(titres.size()), true);
    }
    /// The columns with these numbers alone are ticked.
    void Cocher(std::initializer_list<int> colonnes)
    {
        choix.colonnes.assign(static_cast<size_t>(d.doc.ColCount()), false);
        for (const int colonne : colonnes)
            choix.colonnes[static_cast<size_t>(colonne - 1)] = true;
    }

    QByteArray Exporter(GenreExport genre)
    {
        QBuffer sortie;
        sortie.open(QIODevice::WriteOnly);
        SansAvancement avancement;
        issue = EcrireExport(d.doc, genre, choix, sortie, page.Fichier("page.htm"), avancement);
        return sortie.data();
    }

    DocumentDeTest d;
    DossierDeTest page;
    ChoixExport choix;
    IssueExport issue;
};
