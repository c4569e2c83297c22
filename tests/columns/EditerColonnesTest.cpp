#include "columns/EditerColonnes.h"

#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/TableDeTest.h"

#include <gtest/gtest.h>

namespace {

class EditerColonnes : public testing::Test
{
protected:
    EditerColonnes()
    {
        MettreColonnes(document.table, {"Titre", "Artiste", "Prêté"});
        AjouterEntrees(document.table, {{"Thriller", "Jackson", ""}, {"Abbey Road", "Beatles", "Paul"}});
        doc.IndexColPrete = 3;
    }

    QStringList Titres() const
    {
        QStringList titres;
        for (int i = 1; i <= doc.ColCount(); ++i)
            titres.append(doc.Table.ColumnHeaders(i).Text());
        return titres;
    }
    /// The texts of the messages that were shown.
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
};

} // namespace

TEST_F(EditerColonnes, ANewColumnStandsAtTheEndAndReadsEmpty)
{
    ASSERT_TRUE(AjouterColonne(doc, "Année"));
    EXPECT_EQ(Titres(), QStringList({"Titre", "Artiste", "Prêté", "Année"}));
    EXPECT_EQ(doc.Table.ColumnHeaders(4).Width(), 800);
    EXPECT_EQ(doc.Table.ListItems(2).Valeurs(), QStringList({"Abbey Road", "Beatles", "Paul", ""}));
    EXPECT_FALSE(doc.Table.ListItems(2).ListSubItems(3)) << "no entry is touched";
    EXPECT_TRUE(doc.IlFautSauver);
    EXPECT_EQ(doc.IndexColPrete, 3);
    EXPECT_EQ(Dits(), QStringList());
}

TEST_F(EditerColonnes, AnEmptyTitleIsRefused)
{
    EXPECT_FALSE(AjouterColonne(doc, ""));
    EXPECT_EQ(Dits(), QStringList("msg4: Veuillez entrer un nom"));
    EXPECT_EQ(doc.ColCount(), 3);
    EXPECT_FALSE(doc.IlFautSauver);
}

TEST_F(EditerColonnes, ATitleThatThereIsIsRefusedWhateverItsCase)
{
    for (const char* titre : {"Artiste", "ARTISTE", "prÊTÉ"})
        EXPECT_FALSE(AjouterColonne(doc, titre)) << titre;
    EXPECT_EQ(Dits(), QStringList(3, "msg5: Une colonne porte déjà le même nom veuillez en changer"));
    EXPECT_EQ(doc.ColCount(), 3);
    EXPECT_FALSE(doc.IlFautSauver);
    EXPECT_TRUE(AjouterColonne(doc, "Prete")) << "without its accents it is another title";
}

TEST_F(EditerColonnes, ANewColumnOfThatTitleIsTheLoanColumn)
{
    doc.Table.ColumnHeaders.Remove(3);
    doc.IndexColPrete = -1;
    ASSERT_TRUE(AjouterColonne(doc, "prêté"));
    EXPECT_EQ(doc.IndexColPrete, -1);
    doc.Table.ColumnHeaders.Remove(3);
    ASSERT_TRUE(AjouterColonne(doc, "Prêté"));
    EXPECT_EQ(doc.IndexColPrete, 3);
}

TEST_F(EditerColonnes, TheDependantColumnIsTheOneChosen)
{
    ChoisirDependante(doc, 2);
    EXPECT_EQ(doc.dependantcol, 2);
    EXPECT_TRUE(doc.IlFautSauver);
    doc.IlFautSauver = false;
    ChoisirDependante(doc, 0);
    EXPECT_EQ(doc.dependantcol, 0);
    EXPECT_TRUE(doc.IlFautSauver);
    EXPECT_EQ(doc.Table.ListItems(2).Valeurs(), QStringList({"Abbey Road", "Beatles", "Paul"}));
}
