// What the empty frame offers.
#include "CadreEnFenetre.h"

#include "catalogue/documents/FichierRecent.h"
#include "shell/PanneauDAccueil.h"
#include "support/Accessibilite.h"
#include "support/ArchiveDeTest.h"
#include "support/GardeModale.h"

#include <QListWidget>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

class PanneauDAccueilTest : public CadreEnFenetre
{
protected:
    PanneauDAccueil& Accueil() const { return *cadre->findChild<PanneauDAccueil*>(); }
    void ChoisirExemple(const QString& chemin)
    {
        for (auto* bouton : Accueil().findChildren<QPushButton*>()) {
            if (bouton->toolTip() == chemin)
                QTest::mouseClick(bouton, Qt::LeftButton);
        }
        Laisser();
    }
    void Presser(const QString& commande)
    {
        dynamic_cast<Form1&>(*cadre->Documents().front()).findChild<QAction*>(commande)->trigger();
        Laisser();
    }
    QListWidget& Recents() const { return *cadre->findChild<QListWidget*>(u"ListeRecents"_s); }
};

} // namespace

TEST_F(PanneauDAccueilTest, ItIsOnShowExactlyWhileNoDocumentIsOpen)
{
    Montrer();
    EXPECT_TRUE(Accueil().isVisible());
    EXPECT_EQ(Accueil().size(), Zone().size());
    EXPECT_EQ(ControlesSansNom(Accueil()), QStringList());
    Form1& fenetre = Ouvrir(u"disques.qrt"_s);
    EXPECT_FALSE(Accueil().isVisible());
    fenetre.Decharger();
    Laisser();
    EXPECT_TRUE(Accueil().isVisible());
}

TEST_F(PanneauDAccueilTest, TheKeysGoToTheLastFileWhenTheLastDocumentCloses)
{
    AjouterRecent(u"/nulle/part.qrt"_s);
    Montrer();
    EXPECT_EQ(qApp->focusWidget(), &Recents());
    Form1& fenetre = Ouvrir(u"disques.qrt"_s);
    EXPECT_TRUE(fenetre.isAncestorOf(qApp->focusWidget()));
    fenetre.Decharger();
    Laisser();
    ASSERT_EQ(qApp->focusWidget(), &Recents());
    EXPECT_EQ(Recents().currentRow(), 0);
}

TEST_F(PanneauDAccueilTest, TheFileThatIsChosenStaysSoWhenTheListIsRenewed)
{
    AjouterRecent(u"/nulle/part.qrt"_s);
    AjouterRecent(u"/ailleurs.qrt"_s);
    Montrer();
    Recents().setCurrentRow(1);
    AjouterRecent(u"/nouveau.qrt"_s);
    MajMenuRecents(*cadre);
    ASSERT_EQ(Recents().count(), 3);
    EXPECT_EQ(Recents().currentItem()->toolTip(), "/nulle/part.qrt");
}

TEST_F(PanneauDAccueilTest, EnterOrADoubleClickOpensARecentFile)
{
    AjouterRecent(u"/nulle/part.qrt"_s);
    AjouterRecent(Fichier(u"disques.qrt"_s));
    Montrer();
    ASSERT_EQ(Recents().count(), 2);
    EXPECT_EQ(Recents().item(0)->text(), "disques.qrt");
    EXPECT_EQ(Recents().item(0)->toolTip(), dossier.Fichier(u"disques.qrt"_s));
    EXPECT_TRUE(QTest::qWaitFor([this] { return Recents().item(1)->text() == "part.qrt (introuvable)"; }));
    EXPECT_TRUE(Recents().item(1)->font().italic());
    EXPECT_FALSE(Recents().item(0)->font().italic());
    QTest::keyClick(&Recents(), Qt::Key_Return);
    Laisser();
    ASSERT_EQ(cadre->Documents().size(), 1U);
    cadre->Documents().front()->Decharger();
    Laisser();
    const QPoint milieu = Recents().visualItemRect(Recents().item(0)).center();
    QTest::mouseClick(Recents().viewport(), Qt::LeftButton, {}, milieu);
    QTest::mouseDClick(Recents().viewport(), Qt::LeftButton, {}, milieu);
    Laisser();
    EXPECT_EQ(cadre->Documents().size(), 1U);
}

TEST_F(PanneauDAccueilTest, ASampleOpensAsACategoryThatWasNeverSaved)
{
    Montrer();
    const QString exemple = Fichier(u"exemple.qrt"_s);
    Accueil().MettreExemples({exemple});
    ChoisirExemple(exemple);
    ASSERT_EQ(cadre->Documents().size(), 1U);
    EXPECT_EQ(cadre->Documents().front()->myqrt.CheminReel(), "");
    EXPECT_EQ(cadre->Documents().front()->myqrt.FileType, "");
    EXPECT_EQ(Recents().count(), 0);

    const QByteArray installe = dossier.Lire(u"exemple.qrt"_s);
    dialogues.Preparer({dossier.Fichier(u"a moi.qrt"_s)}, 2);
    cadre->Documents().front()->myqrt.MyLV->ListItems(1).SetText(u"Autre"_s);
    Presser(u"mEnregistrer"_s);
    EXPECT_EQ(dialogues.Demandes().size(), 1) << "a save asks where to";
    EXPECT_TRUE(dossier.Existe(u"a moi.qrt"_s));
    EXPECT_EQ(dossier.Lire(u"exemple.qrt"_s), installe);
    EXPECT_EQ(Recents().item(0)->text(), "a moi.qrt");
}

TEST_F(PanneauDAccueilTest, AFileThatOpensWhileTheCommentsOfASampleShowKeepsItsPlace)
{
    Montrer();
    TexteDeCatalogue texte;
    texte.entrees = {"Abbey Road|"};
    const QString exemple =
        dossier.Ecrire(u"exemple.qrt"_s, FaireArchive({{"Zelvane.qrt", texte.Texte()}, {"Zelvane.txt", "Bonjour"}}));
    const QString autre = Fichier(u"a moi.qrt"_s);
    Accueil().MettreExemples({exemple});
    bool ouverte = false;
    const GardeModale commentaires([&](QWidget& fenetre) {
        ouverte = OuvrirFichier(*cadre, autre, TypeQrt2, true);
        fenetre.close();
    });
    ChoisirExemple(exemple);
    ASSERT_TRUE(ouverte);
    ASSERT_EQ(cadre->Documents().size(), 2U);
    EXPECT_EQ(cadre->Documents().front()->myqrt.CheminReel(), "");
    EXPECT_EQ(cadre->Documents().back()->myqrt.CheminReel(), autre);
    EXPECT_EQ(cadre->Documents().back()->myqrt.FileType, "1");
    EXPECT_EQ(LireOption(Options::FRecent[0]), autre);
}

TEST_F(PanneauDAccueilTest, ASampleTakesNoPlaceAmongTheRecentFiles)
{
    QStringList chemins;
    for (int i = 5; i >= 1; --i) {
        chemins.prepend(u"/nulle/part%1.qrt"_s.arg(i));
        AjouterRecent(chemins.first());
    }
    Montrer();
    const QString exemple = Fichier(u"exemple.qrt"_s);
    Accueil().MettreExemples({exemple});
    ChoisirExemple(exemple);
    cadre->Documents().front()->Decharger();
    Laisser();
    QStringList restes;
    for (int i = 0; i < Recents().count(); ++i)
        restes.append(Recents().item(i)->toolTip());
    EXPECT_EQ(restes, chemins);
}

TEST_F(PanneauDAccueilTest, AFileThatGoesAndComesBackIsToldApartEachTimeTheFrameHasTheKeys)
{
    const QString chemin = Fichier(u"disques.qrt"_s);
    AjouterRecent(chemin);
    Montrer();
    const auto dit = [this](const QString& texte) {
        MajMenuRecents(*cadre);
        return QTest::qWaitFor([&] { return Recents().item(0)->text() == texte; });
    };
    EXPECT_TRUE(dit(u"disques.qrt"_s));
    ASSERT_TRUE(QFile::remove(chemin));
    EXPECT_TRUE(dit(u"disques.qrt (introuvable)"_s));
    Fichier(u"disques.qrt"_s);
    EXPECT_TRUE(dit(u"disques.qrt"_s));
}

TEST_F(PanneauDAccueilTest, AFolderWhoseNameLooksLikeHtmlIsShownAsItIs)
{
    AjouterRecent(u"/<i>lent</i>/a.qrt"_s);
    Montrer();
    EXPECT_TRUE(Recents().item(0)->toolTip().contains(u"&lt;i&gt;lent"_s));
    EXPECT_EQ(Recents().item(0)->data(Qt::UserRole).toString(), "/<i>lent</i>/a.qrt");
}

TEST_F(PanneauDAccueilTest, TheButtonOfOpenShowsTheDialog)
{
    Montrer();
    dialogues.PreparerAnnulation();
    QTest::mouseClick(cadre->findChild<QPushButton*>(u"btOuvrir"_s), Qt::LeftButton);
    Laisser();
    EXPECT_EQ(dialogues.Demandes().size(), 1);
}
