// What is typed in the open editor when the session or the process ends.
#include "GestesDEditeur.h"
#include "SelectionDeTest.h"
#include "entries/mEditLV.h"

#include "base/DossiersTemp.h"
#include "catalogue/documents/CopieDeSecours.h"
#include "catalogue/documents/SecoursDesDocuments.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/LectureQrt.h"
#include "support/CadreDeTest.h"
#include "support/FileDeReponses.h"
#include "support/PlateformeDeTest.h"
#include "support/TableDeTest.h"

#include <QFileInfo>
#include <QImage>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class EditeurAuSecours : public testing::Test
{
protected:
    EditeurAuSecours() : m_avant(InstallerCadre(&m_cadre))
    {
        doc.TmpFolder = CreerDossierTemp();
        MettreColonnes(table, {"Titre", "Artiste"});
        AjouterEntrees(table, {{"a", "1"}, {"b", "2"}, {"c", "3"}});
    }
    ~EditeurAuSecours() override { InstallerCadre(m_avant); }

    /// Opens the editor on these entries, a new one without any, and does `geste` in it.
    void Editer(std::initializer_list<int> positions, const std::function<void(QWidget&)>& geste)
    {
        const GardeModale garde([&](QWidget& form) {
            geste(form);
            form.close();
        });
        if (positions.size() == 0) {
            AjouterEntree(fenetre);
            return;
        }
        Choisir(table, positions);
        table.SetSelectedItem(table.ListItems(*positions.begin()));
        EditerEntrees(fenetre, true, true);
    }
    QStringList Table() const { return Lignes(table); }
    /// The entries of the rescue copy that the end of the session writes; nothing when it writes none with a text.
    std::optional<QStringList> CopieALaFin()
    {
        EXPECT_TRUE(PeutFinirLaSession(m_cadre, false));
        const auto texte = LireTexteDeSecours(FichierDeSecours(doc.TmpFolder));
        DocumentDeTest lu;
        return texte && ChargerTexteExact(lu.doc, *texte) ? std::optional(Lignes(lu.table)) : std::nullopt;
    }

    CadreDeTest m_cadre;
    Cadre* m_avant;
    FenetreDeTest& fenetre = dynamic_cast<FenetreDeTest&>(m_cadre.NouvelleFenetre());
    Categorie& doc = fenetre.myqrt;
    MyLV& table = fenetre.table;
    FileDeReponses reponses;

private:
    static QStringList Lignes(const MyLV& table)
    {
        QStringList lignes;
        for (int i = 1; i <= table.ListItems.Count(); ++i) {
            const ListItemLu entree = table.ListItems(i);
            lignes.append(QString(entree.Valeur(1) + u'/' + entree.Valeur(2) + u'/' + entree.Tag()));
        }
        return lignes;
    }
};

const QStringList AuDebut = {"a/1/", "b/2/", "c/3/"};

} // namespace

TEST_F(EditeurAuSecours, AnEditedEntryIsRescuedAndCancelStillCancels)
{
    Editer({2}, [this](QWidget& form) {
        Taper(form, 1, u"bb"_s);
        EXPECT_EQ(CopieALaFin(), QStringList({"a/1/", "bb/2/", "c/3/"}));
        EXPECT_EQ(Table(), AuDebut);
        EXPECT_FALSE(doc.IlFautSauver);
        Cliquer(form, "Annuler");
    });
    EXPECT_EQ(Table(), AuDebut);
    EXPECT_FALSE(doc.IlFautSauver);
    EXPECT_FALSE(doc.Saisie) << "the editor is gone";
}

TEST_F(EditeurAuSecours, TheEditorGoesOnWhereItWas)
{
    Editer({2}, [this](QWidget& form) {
        Taper(form, 1, u"bb"_s);
        CopieALaFin();
        QTest::keyClicks(form.focusWidget(), u"b"_s);
        EXPECT_EQ(CopieALaFin(), QStringList({"a/1/", "bbb/2/", "c/3/"}));
        Cliquer(form, "btAjouter");
    });
    EXPECT_EQ(Table(), QStringList({"a/1/", "bbb/2/", "c/3/"}));
    EXPECT_TRUE(doc.IlFautSauver);
}

TEST_F(EditeurAuSecours, WhatIsTypedWhileASignalEndsTheProcessKeepsTheFolder)
{
    Editer({2}, [this](QWidget& form) {
        Taper(form, 1, u"bb"_s);
        LaisserAuSecours(m_cadre);
        EXPECT_TRUE(QFileInfo::exists(doc.TmpFolder));
        EXPECT_TRUE(LireTexteDeSecours(FichierDeSecours(doc.TmpFolder)));
    });
}

TEST_F(EditeurAuSecours, ANewEntryIsRescued)
{
    Editer({}, [this](QWidget& form) {
        Taper(form, 2, u"4"_s);
        EXPECT_EQ(CopieALaFin(), QStringList({"/4/", "a/1/", "b/2/", "c/3/"})) << "read in order";
        EXPECT_EQ(Table(), AuDebut);
        Cliquer(form, "Annuler");
    });
    EXPECT_EQ(Table(), AuDebut);
    EXPECT_FALSE(doc.IlFautSauver);
}

TEST_F(EditeurAuSecours, ManyEntriesAreRescued)
{
    reponses.Preparer(RepOui);
    Editer({1, 3}, [this](QWidget& form) {
        Taper(form, 2, u"tous"_s);
        EXPECT_EQ(CopieALaFin(), QStringList({"a/tous/", "b/2/", "c/tous/"}));
        EXPECT_EQ(Table(), AuDebut);
        EXPECT_EQ(Choisies(table), QList<int>({1, 3}));
        Cliquer(form, "Annuler");
    });
    EXPECT_EQ(Table(), AuDebut);
    EXPECT_FALSE(doc.IlFautSauver);
}

TEST_F(EditeurAuSecours, AChosenImageIsRescued)
{
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(doc.TmpFolder + u"n.bmp"_s));
    Editer({2}, [this](QWidget& form) {
        ChoisirPremiereImage(form);
        EXPECT_EQ(CopieALaFin(), QStringList({"a/1/", "b/2/n.bmp", "c/3/"}));
        EXPECT_EQ(Table(), AuDebut);
    });
}

TEST_F(EditeurAuSecours, WhatValidatingRefusesIsRescuedAllTheSame)
{
    Editer({2}, [this](QWidget& form) {
        Taper(form, 1, u"b|b"_s);
        EXPECT_EQ(CopieALaFin(), QStringList({"a/1/", u"b¦b/2/"_s, "c/3/"}));
        EXPECT_TRUE(reponses.Affiches().isEmpty()) << "and nobody is told: the session ends";
    });
}

TEST_F(EditeurAuSecours, ATextToKeepForTheColumnIsRescued)
{
    Editer({2}, [this](QWidget& form) {
        Taper(form, 2, u"Ida"_s);
        Cliquer(form, "btplus");
        Taper(form, 2, u"2"_s);
        ASSERT_TRUE(CopieALaFin());
        DocumentDeTest lu;
        ASSERT_TRUE(ChargerTexteExact(lu.doc, *LireTexteDeSecours(FichierDeSecours(doc.TmpFolder))));
        EXPECT_EQ(lu.table.ColumnHeaders(2).Tag(), u"Ida"_s);
        EXPECT_EQ(table.ColumnHeaders(2).Tag(), QString());
    });
}

TEST_F(EditeurAuSecours, AnEditorInWhichNothingIsTypedIsNoChange)
{
    table.ListItems(1).SetTag(u"a.png"_s);
    Editer({1}, [this](QWidget& form) {
        EXPECT_FALSE(CopieALaFin());
        Taper(form, 1, u"x"_s);
        Taper(form, 1, u"a"_s);
        EXPECT_FALSE(CopieALaFin()) << "typed back";
        Cliquer(form, "btSuivant"); // writes, and keeps the image in its zone
        doc.IlFautSauver = false;
        EXPECT_FALSE(CopieALaFin());
    });
    Editer({}, [this](QWidget&) { EXPECT_FALSE(CopieALaFin()); });
    reponses.Preparer(RepOui);
    Editer({1, 2}, [this](QWidget&) { EXPECT_FALSE(CopieALaFin()); });
}

TEST_F(EditeurAuSecours, AnEntryThatIsBeingEmptiedStays)
{
    Editer({2}, [this](QWidget& form) {
        Taper(form, 1, QString());
        Taper(form, 2, QString());
        EXPECT_FALSE(CopieALaFin()) << "validating would refuse it";
    });
}

TEST_F(EditeurAuSecours, ChangesGivenUpForTheEndAreNotAskedAboutAgainWhenTheEditorCloses)
{
    doc.IlFautSauver = true;
    reponses.Preparer(RepNon);
    Editer({2}, [this](QWidget& form) {
        Taper(form, 1, u"bb"_s);
        EXPECT_TRUE(PeutFinirLaSession(m_cadre, true));
    });
    EXPECT_FALSE(doc.IlFautSauver);
    ReprendreLaSession(m_cadre);
    EXPECT_TRUE(doc.IlFautSauver);
    doc.IlFautSauver = false;
}
