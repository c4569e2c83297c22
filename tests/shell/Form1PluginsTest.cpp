// The plug-ins in the menu of a document.
#include "Form1EnFenetre.h"

#include "extensions/plugins/DossierDePlugins.h"
#include "support/SuiteDeModales.h"

#include <QListWidget>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

class Form1PluginsTest : public Form1Test
{
protected:
    static QStringList Items(const Form1& fenetre)
    {
        QStringList items;
        for (const QAction* item : fenetre.findChild<QMenu*>(u"mPlugin"_s)->actions()) {
            if (item->isVisible())
                items.append(item->text());
        }
        return items;
    }
    static bool MenuMontre(const Form1& fenetre)
    {
        return fenetre.findChild<QMenu*>(u"mPlugin"_s)->menuAction()->isVisible();
    }

    DossierDePlugins dossierDePlugins;
};

} // namespace

TEST_F(Form1PluginsTest, WithoutTheFolderOrACommandTheMenuIsHidden)
{
    QDir(DossierDePlugins::Chemin()).removeRecursively();
    EXPECT_FALSE(MenuMontre(Ouvrir(u"a.qrt"_s)));
    QDir().mkpath(DossierDePlugins::Chemin());
    DossierDePlugins::Mettre({u"fichiers"_s, u"sansentree"_s});
    EXPECT_FALSE(MenuMontre(Ouvrir(u"b.qrt"_s)));
}

TEST_F(Form1PluginsTest, TheMenuHoldsSevenAndRegistersNoMore)
{
    DossierDePlugins::MettreNeufAutres();
    const Form1& fenetre = Ouvrir();
    EXPECT_TRUE(MenuMontre(fenetre));
    EXPECT_EQ(Items(fenetre),
              QStringList({"autre1", "autre2", "autre3", "autre4", "autre5", "autre6", "autre7", "Plus de plugins"}));
    EXPECT_EQ(dossierDePlugins.composants.charges.size(), 7);
    EXPECT_FALSE(dossierDePlugins.composants.charges.contains("autre8.dll"));
}

TEST_F(Form1PluginsTest, OtherKindsUseUpNoItemAndNamesKeepTheirPoints)
{
    DossierDePlugins::Mettre({u"autre1"_s, u"deux.points"_s, u"fichiers"_s, u"majuscules"_s, u"entreeleve"_s});
    EXPECT_EQ(Items(Ouvrir()), QStringList({"autre1", "deux.points", "Plus de plugins"}));
}

TEST_F(Form1PluginsTest, AClickRunsThePluginOnTheDocument)
{
    DossierDePlugins::Mettre(u"deux.points"_s);
    Form1& fenetre = Ouvrir();
    Commande(fenetre, u"mPlugins_0"_s).trigger();
    EXPECT_EQ(Titres(fenetre).constLast(), u"venu¦de loin"_s) << "in its place: the table is sorted";
    EXPECT_EQ(fenetre.myqrt.ItemsCount(), 4);
    EXPECT_EQ(ClesDe(fenetre.myqrt.Table), QStringList({"k1", "k2", "k3", "k4"}));
    EXPECT_EQ(fenetre.myqrt.ScriptChemin, "avec fenetre") << "it got the window's handle";
    EXPECT_TRUE(fenetre.myqrt.IlFautSauver);
    EXPECT_EQ(Panneau(fenetre, 1), u"4 entrée(s)"_s);
    fenetre.myqrt.IlFautSauver = false;
}

TEST_F(Form1PluginsTest, AFailureIsToldAndChangesNothing)
{
    DossierDePlugins::Mettre({u"leve"_s, u"sansmembre"_s});
    const Form1& fenetre = Ouvrir();
    Commande(fenetre, u"mPlugins_0"_s).trigger();
    Commande(fenetre, u"mPlugins_1"_s).trigger();
    EXPECT_EQ(reponses.Cles(), QStringList({"msgPluginEchec", "msgPluginEchec"}));
    EXPECT_FALSE(fenetre.myqrt.IlFautSauver);
}

TEST_F(Form1PluginsTest, WhatIsKeptOfScriptsReachesNoFile)
{
    DossierDePlugins::Mettre(u"autre1"_s);
    Form1& fenetre = Ouvrir();
    Commande(fenetre, u"mPlugins_0"_s).trigger();
    ASSERT_EQ(fenetre.myqrt.ScriptChemin, "avec fenetre");
    fenetre.myqrt.ScriptEdition = true;
    Commande(fenetre, u"mEnregistrer"_s).trigger();
    EXPECT_FALSE(dossier.Lire(u"disques.qrt"_s).contains("avec fenetre"));
    fenetre.Decharger();
    Passer();
    ASSERT_TRUE(OuvrirFichier(cadre, dossier.Fichier(u"disques.qrt"_s), TypeQrt2, true));
    EXPECT_EQ(cadre.Documents().back()->myqrt.ScriptChemin, "");
    EXPECT_FALSE(cadre.Documents().back()->myqrt.ScriptEdition);
}

TEST_F(Form1PluginsTest, TheFramesOwnMenuStaysHidden)
{
    DossierDePlugins::Mettre(u"autre1"_s);
    EXPECT_FALSE(cadre.findChild<QMenu*>(u"mPlugin"_s, Qt::FindChildrenRecursively)->menuAction()->isVisible());
}
