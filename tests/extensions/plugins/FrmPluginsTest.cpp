#include "extensions/plugins/frmPlugins.h"

#include "DossierDePlugins.h"
#include "platform/ZelvanePlugin.h"
#include "support/CadreDeTest.h"
#include "support/FileDeReponses.h"
#include "support/TableDeTest.h"

#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// A command that works as soon as it gets the document.
class PluginPresse : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE void WhatIsIt(QString& genres) { genres = u"other"_s; }
    Q_INVOKABLE void initme(QObject* document, int) { zelvane::Table(document).AjouterLignes({u"Blue"_s}); }
};

class FrmPluginsTest : public testing::Test
{
protected:
    FrmPluginsTest() : fenetre(cadre.NouvelleFenetre())
    {
        MettreColonnes(fenetre.myqrt.Table, {"Titre"});
        AjouterEntrees(fenetre.myqrt.Table, {{"Aja"}});
    }
    static QStringList Lignes(const frmPlugins& form)
    {
        const auto& liste = *form.findChild<QListWidget*>("List1");
        QStringList lignes;
        for (int i = 0; i < liste.count(); ++i)
            lignes.append(liste.item(i)->text());
        return lignes;
    }
    static QPushButton& Bouton(const frmPlugins& form, const char* nom) { return *form.findChild<QPushButton*>(nom); }
    static QString Details(const frmPlugins& form) { return form.findChild<QLabel*>("Label1")->text(); }

    DossierDePlugins dossier;
    FileDeReponses reponses;
    CadreDeTest cadre;
    FenetreDocument& fenetre;
};

} // namespace

TEST_F(FrmPluginsTest, AllCommandsAreListedAndTheFirstOneShowsItsDetails)
{
    DossierDePlugins::MettreNeufAutres();
    DossierDePlugins::Mettre({u"fichiers"_s, u"deux.points"_s, u"sansentree"_s});
    frmPlugins form(fenetre);
    form.show();
    EXPECT_EQ(form.windowTitle(), "Zelvane - Plugins");
    EXPECT_EQ(form.findChild<QGroupBox*>()->title(), "A propos");
    EXPECT_EQ(Bouton(form, "btLancePlugin").text(), "&Demarrer le plugin");
    EXPECT_EQ(Bouton(form, "btFermer").text(), "&Fermer");
    EXPECT_EQ(Lignes(form), QStringList({"autre1", "autre2", "autre3", "autre4", "autre5", "autre6", "autre7", "autre8",
                                         "autre9", "deux.points"}));
    EXPECT_EQ(Details(form), "autre1\n\nDescription : Essaie\n\nVersion : 1.2b.3\n\nAuthor : Ida\n\n"
                             "Website : https://exemple.invalid\n\nEmail : ida@exemple.invalid");
    QTest::keyClick(form.findChild<QListWidget*>("List1"), Qt::Key_End);
    EXPECT_TRUE(Details(form).startsWith(u"deux.points\n"));
    QTest::mouseClick(&Bouton(form, "btFermer"), Qt::LeftButton);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(fenetre.myqrt.ItemsCount(), 1) << "nothing was run";
}

TEST_F(FrmPluginsTest, TheDialogClosesBeforeThePluginWorks)
{
    DossierDePlugins::Mettre(u"autre1"_s);
    frmPlugins form(fenetre);
    form.show();
    QTest::mouseClick(&Bouton(form, "btLancePlugin"), Qt::LeftButton);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(ColonneDe(fenetre.myqrt.Table, 1), QStringList({u"venu¦de loin"_s, "Aja"}));
    EXPECT_EQ(ClesDe(fenetre.myqrt.Table), QStringList({"k1", "k2"}));
    EXPECT_TRUE(fenetre.myqrt.IlFautSauver);
}

TEST_F(FrmPluginsTest, WhatAPluginChangesAsSoonAsItIsChosenIsToBeSaved)
{
    DossierDePlugins::Mettre(u"autre1"_s);
    {
        const frmPlugins form(fenetre);
        EXPECT_FALSE(fenetre.myqrt.IlFautSauver) << "most change nothing";
    }
    dossier.composants.Inscrire(u"PlugQRT.autre2"_s, []() -> QObject* { return new PluginPresse; });
    QFile fichier(DossierDePlugins::Chemin() + u"autre2.dll"_s);
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    frmPlugins form(fenetre);
    form.show();
    QTest::keyClick(form.findChild<QListWidget*>("List1"), Qt::Key_End);
    QTest::mouseClick(&Bouton(form, "btFermer"), Qt::LeftButton);
    EXPECT_EQ(fenetre.myqrt.ItemsCount(), 2);
    EXPECT_EQ(ClesDe(fenetre.myqrt.Table), QStringList({"k1", "k2"}));
    EXPECT_TRUE(fenetre.myqrt.IlFautSauver);
}

TEST_F(FrmPluginsTest, ADoubleClickOnAPluginStartsIt)
{
    DossierDePlugins::Mettre(u"autre1"_s);
    frmPlugins form(fenetre);
    form.show();
    const auto& liste = *form.findChild<QListWidget*>("List1");
    const QPoint milieu = liste.visualItemRect(liste.item(0)).center();
    QTest::mouseClick(liste.viewport(), Qt::LeftButton, {}, milieu);
    EXPECT_TRUE(form.isVisible());
    QTest::mouseDClick(liste.viewport(), Qt::LeftButton, {}, milieu);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(fenetre.myqrt.ItemsCount(), 2);
}

TEST_F(FrmPluginsTest, AFailureOfThePluginIsToldAfterTheDialogClosed)
{
    DossierDePlugins::Mettre(u"sansmembre"_s);
    frmPlugins form(fenetre);
    form.show();
    EXPECT_EQ(reponses.Cles(), QStringList({"msgPluginEchec"})) << "a property is missing";
    EXPECT_EQ(Details(form), "");
    bool ouverte = true;
    reponses.AChaqueMessage = [&] { ouverte = form.isVisible(); };
    QTest::mouseClick(&Bouton(form, "btLancePlugin"), Qt::LeftButton);
    EXPECT_EQ(reponses.Affiches().size(), 2);
    EXPECT_FALSE(ouverte);
    EXPECT_FALSE(fenetre.myqrt.IlFautSauver);
}

TEST_F(FrmPluginsTest, APluginThatThrowsCannotBeStarted)
{
    DossierDePlugins::Mettre(u"leve"_s);
    frmPlugins form(fenetre);
    form.show();
    EXPECT_EQ(reponses.Cles(), QStringList({"msgPluginEchec"}));
    EXPECT_FALSE(Bouton(form, "btLancePlugin").isEnabled());
}

TEST_F(FrmPluginsTest, AnEmptyFolderGivesAnEmptyList)
{
    frmPlugins form(fenetre);
    form.show();
    EXPECT_EQ(Lignes(form), QStringList());
    EXPECT_FALSE(Bouton(form, "btLancePlugin").isEnabled());
    EXPECT_TRUE(reponses.Affiches().isEmpty());
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

#include "FrmPluginsTest.moc"
