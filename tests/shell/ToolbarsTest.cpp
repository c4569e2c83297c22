// The commands by their keys.
#include "BarresEnFenetre.h"

#include "catalogue/documents/Commentaires.h"
#include "extensions/dialogues/frmTip.h"
#include "support/GardeModale.h"

using namespace Qt::StringLiterals;

namespace {

using CommandeTest = BarresEnFenetre;

const QStringList SansDocument{u"addcat"_s, u"ouvrir"_s, u"apropos"_s, u"aide"_s};
const QStringList AvecDocument{u"grille"_s, u"addentree"_s,  u"editentree"_s,  u"editcat"_s, u"image"_s, u"delentree"_s,
                               u"save"_s,   u"rechercher"_s, u"commentaire"_s, u"preter"_s,  u"rendu"_s, u"print"_s};

} // namespace

TEST(EtatBouton, IsOneForTrueAndZeroForFalse)
{
    EXPECT_EQ(EtatBouton(true), 1);
    EXPECT_EQ(EtatBouton(false), 0);
}

TEST_F(CommandeTest, WithoutADocumentTheCommandsOfADocumentDoNothingAndSayNothing)
{
    Montrer();
    const FermeModales modales;
    for (const QString& cle : AvecDocument + QStringList{u"commentaire "_s, u"delcat"_s, QString()})
        Commande(*cadre, cle);
    EXPECT_TRUE(reponses.Affiches().isEmpty());
    EXPECT_TRUE(dialogues.Demandes().isEmpty());
    EXPECT_EQ(modales.fenetres, QStringList());
}

TEST_F(CommandeTest, EveryKeyIsMatchedWithADocument)
{
    Montrer();
    Form1& a = Ouvrir(u"a.qrt"_s);
    const FermeModales modales;
    for (const QString& cle : AvecDocument) {
        EXPECT_NE(Rang(cle)->besoin, Besoin::Rien) << cle.toStdString();
        Commande(*cadre, cle);
    }
    EXPECT_FALSE(reponses.Cles().contains(u"Rien"_s));
    a.myqrt.IlFautSauver = false;
}

TEST_F(CommandeTest, AnyOtherTextEndsInRien)
{
    Montrer();
    Ouvrir(u"a.qrt"_s);
    const QStringList autres{QString(), u"commentaire "_s, u"delcat"_s, u"Save"_s, u" save"_s, u"copier"_s};
    for (const QString& cle : autres)
        Commande(*cadre, cle);
    EXPECT_EQ(reponses.Cles(), QStringList(autres.size(), u"Rien"_s));
    EXPECT_EQ(reponses.Affiches().front().genre, MsgOk);
}

// ---- Commands of the frame

TEST_F(CommandeTest, AProposAndAideAreCrossed)
{
    PlateformeDeTest::Courante().dossier.Ecrire(u"astuces.txt"_s, "Une\r\n");
    Montrer();
    const FermeModales modales;
    Commande(*cadre, u"apropos"_s);
    Commande(*cadre, u"aide"_s);
    EXPECT_EQ(modales.fenetres, QStringList({u"frmTip"_s, u"About"_s}));
    EXPECT_TRUE(reponses.Affiches().isEmpty());
}

TEST_F(CommandeTest, TheTipsAreShownEvenWhenTheirFileIsMissing)
{
    Montrer();
    const FermeModales modales;
    Commande(*cadre, u"apropos"_s);
    EXPECT_EQ(modales.fenetres, QStringList{u"frmTip"_s});
    EXPECT_EQ(reponses.Cles(), QStringList{u"msg92"_s});
}

TEST_F(CommandeTest, TheTipsOfTheStartMakeRoom)
{
    PlateformeDeTest::Courante().dossier.Ecrire(u"astuces.txt"_s, "Une\r\n");
    Montrer();
    frmTip::Montrer(*cadre);
    cadre->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(cadre.get()));
    int visibles = 0;
    {
        const GardeModale garde([&](QWidget& fenetre) {
            for (const frmTip* form : cadre->findChildren<frmTip*>())
                visibles += form->isVisible() ? 1 : 0;
            fenetre.close();
        });
        Commande(*cadre, u"apropos"_s);
    }
    EXPECT_EQ(visibles, 1);
}

TEST_F(CommandeTest, OpenShowsTheDialogAlsoWithoutADocument)
{
    Montrer();
    dialogues.Preparer({Fichier(u"disques.qrt"_s)}, TypeQrt2);
    Commande(*cadre, u"ouvrir"_s);
    EXPECT_EQ(Titres(), QStringList{u"disques.qrt"_s});
}

TEST_F(CommandeTest, ANewCategoryStartsFromTheButtonTheMenuTheKeyAndThePopUpMenus)
{
    Montrer();
    const FermeModales modales;
    QTest::keyClick(cadre.get(), Qt::Key_N, Qt::ControlModifier); // first: keys go to an active window only
    Presser(u"addcat"_s);
    Menu(u"mCategorie"_s).trigger();
    for (const QString& nom : {u"mNouvelleCategorie"_s, u"mNouvelleCategorie2"_s, u"mNouvelleCategorie3"_s})
        cadre->findChild<QWidget*>(u"frmPopup"_s)->findChild<QAction*>(nom)->trigger();
    EXPECT_EQ(modales.fenetres, QStringList(6, u"frmAddCategorie2"_s));
    EXPECT_TRUE(cadre->Documents().empty());
}

TEST_F(CommandeTest, OnlyTheFramesOwnCommandsGoWithoutADocument)
{
    for (const QString& cle : SansDocument)
        EXPECT_EQ(Rang(cle)->besoin, Besoin::Rien) << cle.toStdString();
}

// ---- Commands of the active window

TEST_F(CommandeTest, TheGridIsFlippedInTheTableTheMenuAndBothBars)
{
    Montrer();
    const Form1& a = Ouvrir(u"a.qrt"_s);
    const bool avant = a.myqrt.MyLV->GridLines();
    for (const bool grille : {!avant, avant}) {
        Commande(*cadre, u"grille"_s);
        EXPECT_EQ(a.myqrt.MyLV->GridLines(), grille);
        EXPECT_EQ(MenuDe(a, u"mAfficherGrille"_s).isChecked(), grille);
        EXPECT_EQ(Bouton(u"grille"_s, 1).isChecked(), grille);
        EXPECT_EQ(Bouton(u"grille"_s, 2).isChecked(), grille);
    }
}

TEST_F(CommandeTest, ImagesAreFlippedInTheMenuAndBothBars)
{
    Montrer();
    const Form1& a = Ouvrir(u"a.qrt"_s);
    const bool avant = MenuDe(a, u"mAfficherImages"_s).isChecked();
    for (const bool images : {!avant, avant}) {
        Commande(*cadre, u"image"_s);
        EXPECT_EQ(MenuDe(a, u"mAfficherImages"_s).isChecked(), images);
        EXPECT_EQ(Bouton(u"image"_s, 1).isChecked(), images);
        EXPECT_EQ(Bouton(u"image"_s, 2).isChecked(), images);
    }
}

TEST_F(CommandeTest, TheActiveWindowIsAskedForAtEachCall)
{
    Montrer();
    Form1& a = Ouvrir(u"a.qrt"_s);
    const Form1& b = Ouvrir(u"b.qrt"_s);
    const bool avant = a.myqrt.MyLV->GridLines();
    Commande(*cadre, u"grille"_s);
    EXPECT_EQ(a.myqrt.MyLV->GridLines(), avant);
    EXPECT_EQ(b.myqrt.MyLV->GridLines(), !avant);
    cadre->AmenerDevant(a);
    Commande(*cadre, u"grille"_s);
    EXPECT_EQ(a.myqrt.MyLV->GridLines(), !avant);
}

TEST_F(CommandeTest, SaveWritesTitlesAndNotesTheFile)
{
    Montrer();
    Form1& a = Ouvrir(u"a.qrt"_s);
    a.myqrt.IlFautSauver = true;
    a.SetCaption(u"provisoire"_s);
    cadre->MettreTitreOnglet(a, u"provisoire"_s);
    EcrireOption(u"FRecent1"_s, u"/autre.qrt"_s);
    Commande(*cadre, u"save"_s);
    EXPECT_FALSE(a.myqrt.IlFautSauver);
    EXPECT_EQ(a.Caption(), "a.qrt");
    EXPECT_EQ(Titres(), QStringList{u"a.qrt"_s});
    EXPECT_EQ(Recent(0).data().toString(), a.myqrt.CheminReel());
    EXPECT_EQ(Recent(1).data().toString(), "/autre.qrt");
    EXPECT_EQ(MenuDe(a, u"mRecent_1"_s).data().toString(), "/autre.qrt");
}

TEST_F(CommandeTest, AFirstSaveThatIsCancelledLeavesTheNameThatStands)
{
    Montrer();
    FenetreDocument& neuve = cadre->NouvelleFenetre();
    neuve.SetCaption(u"Sans nom"_s);
    cadre->AjouterOnglet(neuve);
    Laisser();
    dialogues.PreparerAnnulation();
    Commande(*cadre, u"save"_s);
    EXPECT_EQ(neuve.Caption(), "Sans nom");
    EXPECT_EQ(Titres(), QStringList{u"Sans nom"_s});
}

TEST_F(CommandeTest, TheBareKeyOfCommentsOpensThem)
{
    Montrer();
    Ouvrir(u"a.qrt"_s);
    const FermeModales modales;
    Commande(*cadre, u"commentaire"_s);
    EXPECT_EQ(modales.fenetres, QStringList{u"frmCommentaires"_s});
}

TEST_F(CommandeTest, DeletingNumbersTheKeysAnew)
{
    Montrer();
    const Form1& a = Ouvrir(u"a.qrt"_s);
    a.myqrt.MyLV->ListItems(1).SetKey(u"k77"_s);
    const FermeModales modales;
    Commande(*cadre, u"delentree"_s);
    EXPECT_EQ(ClesDe(*a.myqrt.MyLV), QStringList{u"k1"_s});
}
