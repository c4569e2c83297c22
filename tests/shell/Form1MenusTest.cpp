// The menus of a document.
#include "Form1EnFenetre.h"

using namespace Qt::StringLiterals;

namespace {

/// A frame whose bars record what they are told.
class CadreAvecBarres : public QMainWindow, public BarresDuCadre
{
public:
    void MontrerEtats(const FenetreDocument&, bool grille, bool images) override { etats = {grille, images}; }
    void MontrerMenuClickDroit(bool, const QPoint&) override {}
    bool GrandesIcones() const override { return grandes; }
    void mGrandesIcones_Click() override { grandes = !grandes; }

    std::pair<bool, bool> etats{false, false};
    bool grandes = true;
};

} // namespace

TEST_F(Form1Test, TheMenusOfADocumentTakeThePlaceOfTheFrames)
{
    const QStringList duCadre = BarreDuCadre();
    Form1& fenetre = Ouvrir();
    EXPECT_EQ(BarreDuCadre(), QStringList({"&Fichier", "&Edition", "&Affichage", "Ou&tils", u"&Prêt"_s, "&Options",
                                           u"Fe&nêtre"_s, "A&ide"}));
    EXPECT_FALSE(fenetre.menuBar()->isVisible());
    fenetre.Decharger();
    Passer();
    QCoreApplication::processEvents();
    EXPECT_EQ(BarreDuCadre(), duCadre);
}

TEST_F(Form1Test, TheMenusAreThoseOfTheDocumentInFront)
{
    Form1& premiere = Ouvrir(u"a.qrt"_s);
    const Form1& seconde = Ouvrir(u"b.qrt"_s);
    EXPECT_EQ(cadre.menuBar()->actions(), seconde.findChild<QMenuBar*>(u"Menus"_s)->actions());
    cadre.AmenerDevant(premiere);
    EXPECT_EQ(cadre.menuBar()->actions(), premiere.findChild<QMenuBar*>(u"Menus"_s)->actions());
}

TEST_F(Form1Test, AShortcutReachesTheDocumentInFrontAlone)
{
    Form1& premiere = Ouvrir(u"a.qrt"_s);
    Form1& seconde = Ouvrir(u"b.qrt"_s);
    premiere.myqrt.MyLV->ListItems(1).SetText(u"Premier"_s);
    seconde.myqrt.MyLV->ListItems(1).SetText(u"Second"_s);
    QTest::keyClick(&seconde.ListView1(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(dossier.Lire(u"b.qrt"_s).contains("Second"));
    EXPECT_FALSE(dossier.Lire(u"a.qrt"_s).contains("Premier"));
}

TEST_F(Form1Test, SavingUnderAnotherNameChangesTheCaption)
{
    Form1& fenetre = Ouvrir();
    fichiers.Preparer({dossier.Fichier(u"autre.qrt"_s)}, 2);
    Commande(fenetre, u"mEnregistrerSous"_s).trigger();
    EXPECT_TRUE(dossier.Existe(u"autre.qrt"_s));
    EXPECT_EQ(fenetre.Caption(), "autre.qrt");
    EXPECT_EQ(Commande(fenetre, u"mRecent_0"_s).data().toString(), dossier.Fichier(u"autre.qrt"_s));
}

TEST_F(Form1Test, TheRecentFilesStandInTheMenuAndOpen)
{
    Form1& premiere = Ouvrir(u"moi & toi.qrt"_s);
    const QString chemin = dossier.Fichier(u"moi & toi.qrt"_s);
    premiere.Decharger();
    Passer();
    const Form1& seconde = Ouvrir(u"b.qrt"_s);
    cadre.activateWindow();
    seconde.ListView1().clearFocus();
    seconde.ListView1().setFocus();
    const QAction& ancien = Commande(seconde, u"mRecent_1"_s);
    EXPECT_TRUE(ancien.isVisible());
    EXPECT_EQ(ancien.text(), QString(chemin).replace(u"&"_s, u"&&"_s));
    EXPECT_FALSE(Commande(seconde, u"mRecent_2"_s).isVisible());
    EXPECT_TRUE(Commande(seconde, u"mBarRecent"_s).isVisible());
    EXPECT_TRUE(Commande(seconde, u"mBarRecent"_s).isSeparator());
    Commande(seconde, u"mRecent_1"_s).trigger();
    ASSERT_EQ(cadre.Documents().size(), 2);
    EXPECT_EQ(cadre.Documents()[1]->myqrt.CheminReel(), chemin);
}

TEST_F(Form1Test, CloseAllNeedsTwoDocuments)
{
    const Form1& premiere = Ouvrir(u"a.qrt"_s);
    EXPECT_FALSE(Commande(premiere, u"mFermerTout"_s).isEnabled());
    EXPECT_FALSE(Commande(premiere, u"mEnregistrerTout"_s).isEnabled());
    const Form1& seconde = Ouvrir(u"b.qrt"_s);
    EXPECT_TRUE(Commande(seconde, u"mFermerTout"_s).isEnabled());
    Commande(seconde, u"mFermerTout"_s).trigger();
    EXPECT_TRUE(cadre.Documents().empty());
}

TEST_F(Form1Test, TheGridFollowsItsMenuItem)
{
    const Form1& fenetre = Ouvrir();
    QAction& grille = Commande(fenetre, u"mAfficherGrille"_s);
    EXPECT_TRUE(grille.isChecked()) << "the file has lines";
    grille.trigger();
    EXPECT_FALSE(fenetre.myqrt.MyLV->GridLines());
    grille.trigger();
    EXPECT_TRUE(fenetre.myqrt.MyLV->GridLines());
    EXPECT_FALSE(fenetre.myqrt.IlFautSauver);
}

TEST_F(Form1Test, TheBarsOfTheFrameShowTheStatesOfTheView)
{
    CadreAvecBarres barres;
    auto* fenetre = new Form1;
    barres.setCentralWidget(fenetre);
    fenetre->RedrawAll();
    EXPECT_EQ(barres.etats, std::pair(false, true)) << "no lines in a new table, images on";
    fenetre->mAfficherImages_Click();
    EXPECT_EQ(barres.etats, std::pair(false, false));
    Commande(*fenetre, u"mAfficherGrille"_s).trigger();
    EXPECT_EQ(barres.etats, std::pair(true, false));
}

TEST_F(Form1Test, LargeIconsAreAStateOfTheFrame)
{
    CadreAvecBarres barres;
    auto* fenetre = new Form1;
    QAction& grandes = Commande(*fenetre, u"mGrandesIcones"_s);
    EXPECT_FALSE(grandes.isEnabled()) << "without a frame";
    barres.setCentralWidget(fenetre);
    fenetre->RedrawAll();
    EXPECT_TRUE(grandes.isEnabled());
    EXPECT_TRUE(grandes.isChecked());
    grandes.trigger();
    EXPECT_FALSE(barres.grandes);
    EXPECT_FALSE(grandes.isChecked());
}

TEST_F(Form1Test, ItemsWhoseCommandIsNotBuiltStandDisabled)
{
    const Form1& fenetre = Ouvrir();
    for (const QString& nom : {u"mOuvrir"_s, u"mImporter"_s, u"mExporter"_s, u"mImprimer"_s, u"mRemplacer"_s,
                               u"mModifierEnree"_s, u"mEntree"_s, u"mSupprimerEntree"_s, u"mStatistiques"_s})
        EXPECT_FALSE(Commande(fenetre, nom).isEnabled()) << nom.toStdString();
}

TEST_F(Form1Test, AShortcutOfADisabledItemDoesNothing)
{
    const Form1& fenetre = Ouvrir();
    QTest::keyClick(&fenetre.ListView1(), Qt::Key_E, Qt::ControlModifier);
    QTest::keyClick(&fenetre.ListView1(), Qt::Key_Delete);
    QTest::keyClick(&fenetre.ListView1(), Qt::Key_Return);
    EXPECT_EQ(fenetre.myqrt.ItemsCount(), 3);
    EXPECT_FALSE(fenetre.myqrt.IlFautSauver);
}

TEST_F(Form1Test, ColumnsAreFittedToTheirCellsAndTitles)
{
    const Form1& fenetre = Ouvrir(u"a.qrt"_s, {QByteArray("Un titre vraiment tres long qui prend de la place ici|x|")});
    Commande(fenetre, u"mRedimentionAutomatique"_s).trigger();
    QCoreApplication::processEvents();
    const VueTable& vue = fenetre.ListView1();
    EXPECT_TRUE(vue.EstEntiere(1, 1));
    const int texte = vue.fontMetrics().horizontalAdvance(fenetre.myqrt.MyLV->ListItems(1).Text());
    EXPECT_LT(vue.columnWidth(0), texte + 40);
    const int titre = fenetre.fontMetrics().horizontalAdvance(u"Artiste"_s);
    EXPECT_NEAR(vue.columnWidth(1), titre + vue.PixelsDe(550), 1);
    EXPECT_FALSE(fenetre.myqrt.IlFautSauver);
}

TEST_F(Form1Test, ColumnsAreScaledToTheWindow)
{
    const Form1& fenetre = Ouvrir();
    Commande(fenetre, u"mRedimAuto2"_s).trigger();
    QCoreApplication::processEvents();
    const VueTable& vue = fenetre.ListView1();
    EXPECT_NEAR(vue.horizontalHeader()->length(), vue.width() - vue.PixelsDe(340), 3);
    EXPECT_FALSE(fenetre.myqrt.IlFautSauver);
}

TEST_F(Form1Test, EveryItemOfTheMenusHasACaption)
{
    const Form1& fenetre = Ouvrir();
    for (const QAction* commande : fenetre.findChildren<QAction*>()) {
        if (!commande->objectName().startsWith(u'm') || commande->isSeparator() || !commande->isVisible())
            continue;
        EXPECT_FALSE(commande->text().isEmpty()) << commande->objectName().toStdString();
    }
}
