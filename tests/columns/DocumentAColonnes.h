// A document whose columns are changed, with the messages of that.
#pragma once

#include "base/Avancement.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/TableDeTest.h"

#include <gtest/gtest.h>

/// "Titre", "Artiste" and "Prêté" with two entries.
class DocumentAColonnes : public testing::Test
{
protected:
    DocumentAColonnes()
    {
        MettreColonnes(document.table, {"Titre", "Artiste", "Prêté"});
        AjouterEntrees(document.table, {{"Thriller", "Jackson", ""}, {"Abbey Road", "Beatles", "Paul"}});
        doc.IndexColPrete = 3;
    }

    /// Another table, from lines of a file: fields that a line lacks are cells that were never written. Nothing sorts
    /// it.
    void Charger(const QList<QByteArray>& titres, const QList<QByteArray>& lignes)
    {
        TexteDeCatalogue texte;
        texte.cleDeTri = "99";
        texte.colonnes.clear();
        for (const QByteArray& titre : titres)
            texte.colonnes.append(titre + "|1000|");
        texte.entrees = lignes;
        document.Charger(texte.Texte());
    }

    QStringList Titres() const
    {
        QStringList titres;
        for (int i = 1; i <= doc.ColCount(); ++i)
            titres.append(doc.Table.ColumnHeaders(i).Text());
        return titres;
    }
    static QStringList Valeurs(const QList<QStringList>& entrees)
    {
        QStringList lignes;
        for (const QStringList& valeurs : entrees)
            lignes.append(valeurs.join(u'|'));
        return lignes;
    }
    /// The values of all entries, one line each.
    QStringList Valeurs() const
    {
        QList<QStringList> entrees;
        for (int i = 1; i <= doc.ItemsCount(); ++i)
            entrees.append(doc.Table.ListItems(i).Valeurs());
        return Valeurs(entrees);
    }
    /// The texts of the messages that were shown, each with one button.
    QStringList Dits() const
    {
        QStringList dits;
        for (const FileDeReponses::Affiche& affiche : reponses.Affiches()) {
            EXPECT_EQ(affiche.genre, MsgOk);
            EXPECT_EQ(affiche.titre, "");
            dits.append(affiche.message.cle + ": " + affiche.message.texte);
        }
        return dits;
    }

    FileDeReponses reponses;
    DocumentDeTest document;
    Categorie& doc = document.doc;
    SansAvancement avancement;
};
