// The buttons of the two tool bars.
#include "BarresEnFenetre.h"

#include <QAccessible>

using namespace Qt::StringLiterals;

namespace {

using BarreOutilsTest = BarresEnFenetre;

struct Ligne
{
    QString cle;
    QString infoBulle;
    QString image;
};

/// The buttons of a bar, 1 or 2.
QList<Ligne> LignesDe(int barre)
{
    const bool petites = barre == 1;
    return {
        {u"addentree"_s, u"Ajouter une entree (Ctrl+E)"_s, u"addentree"_s},
        {u"editentree"_s, u"Editer une entrée (Entree)"_s, u"editentree"_s},
        {u"delentree"_s, u"Supprimer Entrée (Suppr)"_s, u"delentree"_s},
        {u"addcat"_s, u"Nouvelle Catégorie (Ctrl+N)"_s, u"addcat"_s},
        {u"editcat"_s, petites ? u"Editer catégorie (Ctrl+M)"_s : u"Editer catégorie"_s, u"editcat"_s},
        {u"ouvrir"_s, u"ouvrir une catégorie"_s, u"open"_s},
        {u"save"_s, u"Enregistrer la catégorie"_s, u"save"_s},
        {u"print"_s, u"Imprimer"_s, u"print"_s},
        {u"preter"_s, u"Marquer comme Prete"_s, u"prete"_s},
        {u"rendu"_s, u"Marquer comme Rendu"_s, u"rendu"_s},
        {u"rechercher"_s, u"Rechercher"_s, u"rechercher"_s},
        {u"grille"_s, u"Afficher/Cacher la grille"_s, u"grille"_s},
        {u"image"_s, u"Afficher/Cacher les images"_s, u"image"_s},
        {u"commentaire "_s, u"Afficher/Cacher les commentaires"_s, u"showtexte"_s},
        {u"apropos"_s, u"Boite de dialogue A porpos"_s, u"apropos"_s},
        {u"aide"_s, u"Afficher l'aide"_s, petites ? u"aide"_s : u"help"_s},
    };
}

} // namespace

TEST_F(BarreOutilsTest, EachBarHasItsButtonsInOrder)
{
    Montrer();
    for (const int barre : {1, 2}) {
        const QList<Ligne> lignes = LignesDe(barre);
        const QList<QAction*> boutons = BarreDe(barre).actions();
        const auto modeles = barre == 1 ? BoutonsDeToolbar1() : BoutonsDeToolbar2();
        ASSERT_EQ(boutons.size(), lignes.size());
        for (qsizetype i = 0; i < lignes.size(); ++i) {
            EXPECT_EQ(boutons[i]->data().toString(), lignes[i].cle);
            EXPECT_EQ(boutons[i]->toolTip(), lignes[i].infoBulle);
            EXPECT_EQ(QString::fromUtf16(modeles[i].image), lignes[i].image);
            EXPECT_FALSE(boutons[i]->icon().isNull()) << lignes[i].image.toStdString();
            EXPECT_EQ(boutons[i]->text(), lignes[i].infoBulle) << "the name that is read out";
        }
    }
}

TEST_F(BarreOutilsTest, WithoutADocumentOnlyTheFramesCommandsCanBePressed)
{
    Montrer();
    const QStringList duCadre{u"addcat"_s, u"ouvrir"_s, u"apropos"_s, u"aide"_s};
    EXPECT_EQ(Disponibles(1), duCadre);
    EXPECT_EQ(Disponibles(2), duCadre);
    Presser(u"grille"_s);
    Presser(u"commentaire "_s);
    EXPECT_TRUE(reponses.Affiches().isEmpty());
    EXPECT_FALSE(Bouton(u"grille"_s).isChecked());
}

TEST_F(BarreOutilsTest, WithADocumentEveryCommandThatIsThereCanBePressed)
{
    Montrer();
    Form1& a = Ouvrir(u"a.qrt"_s);
    for (const int barre : {1, 2}) {
        for (const Ligne& ligne : LignesDe(barre))
            EXPECT_EQ(Bouton(ligne.cle, barre).isEnabled(), Rang(ligne.cle)->faire && ligne.cle != u"editentree")
                << ligne.cle.toStdString();
    }
    EXPECT_TRUE(Disponibles(1).contains(u"save"_s));
    a.Decharger();
    Laisser();
    EXPECT_FALSE(Disponibles(1).contains(u"save"_s));
    EXPECT_FALSE(Bouton(u"grille"_s).isChecked()) << "no table is on show";
}

TEST_F(BarreOutilsTest, WithADocumentEveryButtonIsEnabled)
{
    Montrer();
    Ouvrir(u"a.qrt"_s);
    for (const QString& cle :
         {u"addentree"_s, u"delentree"_s, u"addcat"_s, u"editcat"_s, u"ouvrir"_s, u"save"_s, u"preter"_s, u"rendu"_s,
          u"rechercher"_s, u"grille"_s, u"image"_s, u"commentaire "_s, u"apropos"_s, u"aide"_s, u"print"_s})
        EXPECT_TRUE(Bouton(cle).isEnabled()) << cle.toStdString();
}

TEST_F(BarreOutilsTest, EditingNeedsASelectionAsInTheMenus)
{
    Montrer();
    const Form1& a = Ouvrir(u"a.qrt"_s);
    for (const bool choisie : {true, false}) {
        a.myqrt.MyLV->Selectionner(1, 1, choisie);
        Laisser();
        EXPECT_EQ(Bouton(u"editentree"_s).isEnabled(), choisie);
        EXPECT_EQ(MenuDe(a, u"mModifierEnree"_s).isEnabled(), choisie);
    }
}

TEST_F(BarreOutilsTest, AStateThatAssistiveTechnologiesChangeIsChanged)
{
    Montrer();
    const Form1& a = Ouvrir(u"a.qrt"_s);
    const bool avant = a.myqrt.MyLV->GridLines();
    QAccessibleInterface* bouton =
        QAccessible::queryAccessibleInterface(BarreDe(1).widgetForAction(&Bouton(u"grille"_s)));
    ASSERT_TRUE(bouton && bouton->actionInterface());
    bouton->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    Laisser();
    EXPECT_EQ(a.myqrt.MyLV->GridLines(), !avant);
    EXPECT_EQ(Bouton(u"grille"_s).isChecked(), !avant);
    MenuDe(a, u"mAfficherGrille"_s).setChecked(avant);
    EXPECT_EQ(a.myqrt.MyLV->GridLines(), avant) << "an item of a menu, too";
}

TEST_F(BarreOutilsTest, AButtonOfEitherBarRunsItsCommand)
{
    Montrer();
    const Form1& a = Ouvrir(u"a.qrt"_s);
    bool grille = a.myqrt.MyLV->GridLines();
    for (const int barre : {1, 2}) {
        Presser(u"grille"_s, barre);
        grille = !grille;
        EXPECT_EQ(a.myqrt.MyLV->GridLines(), grille);
        EXPECT_EQ(Bouton(u"grille"_s, 1).isChecked(), grille);
        EXPECT_EQ(Bouton(u"grille"_s, 2).isChecked(), grille);
        cadre->mGrandesIcones_Click();
    }
}

TEST_F(BarreOutilsTest, TheButtonsOfLendingRunTheirCommands)
{
    Montrer();
    const Form1& a = Ouvrir(u"a.qrt"_s);
    a.myqrt.MyLV->Selectionner(1, 1, true);
    const FermeModales modales;
    for (const int barre : {1, 2}) {
        Presser(u"preter"_s, barre);
        reponses.Preparer(RepNon);
        Presser(u"rendu"_s, barre);
        cadre->mGrandesIcones_Click();
    }
    EXPECT_EQ(modales.fenetres, QStringList(2, u"frmPreter"_s));
    EXPECT_EQ(reponses.Cles(), QStringList(2, u"msg33"_s));
}

TEST_F(BarreOutilsTest, TheButtonOfCommentsEndsInRien)
{
    Montrer();
    Ouvrir(u"a.qrt"_s);
    const FermeModales modales;
    Presser(u"commentaire "_s);
    EXPECT_EQ(reponses.Cles(), QStringList{u"Rien"_s});
    EXPECT_EQ(modales.fenetres, QStringList());
}

TEST_F(BarreOutilsTest, HelpAndAboutButtonsShowEachOthersWindow)
{
    PlateformeDeTest::Courante().dossier.Ecrire(u"astuces.txt"_s, "Une\r\n");
    Montrer();
    const FermeModales modales;
    Presser(u"apropos"_s);
    Presser(u"aide"_s);
    EXPECT_EQ(modales.fenetres, QStringList({u"frmTip"_s, u"About"_s}));
}

TEST_F(BarreOutilsTest, OpenAndSaveButtons)
{
    Montrer();
    dialogues.Preparer({Fichier(u"a.qrt"_s)}, TypeQrt2);
    Presser(u"ouvrir"_s);
    Laisser();
    ASSERT_EQ(Titres(), QStringList{u"a.qrt"_s});
    FenetreDocument& a = *cadre->FenetreActive();
    a.myqrt.IlFautSauver = true;
    Presser(u"save"_s);
    EXPECT_FALSE(a.myqrt.IlFautSauver);
}

TEST_F(BarreOutilsTest, TheStatesAreThoseOfTheActiveWindow)
{
    Montrer();
    Form1& a = Ouvrir(u"a.qrt"_s);
    Form1& b = Ouvrir(u"b.qrt"_s);
    a.myqrt.MyLV->SetGridLines(true);
    b.myqrt.MyLV->SetGridLines(false);
    b.RedrawAll();
    EXPECT_FALSE(Bouton(u"grille"_s).isChecked());
    a.RedrawAll(true);
    EXPECT_FALSE(Bouton(u"grille"_s).isChecked()) << "the window behind is refreshed, too, when the frame is resized";
    cadre->AmenerDevant(a);
    Laisser();
    EXPECT_TRUE(Bouton(u"grille"_s, 1).isChecked());
    EXPECT_TRUE(Bouton(u"grille"_s, 2).isChecked());
}

TEST_F(BarreOutilsTest, ToolTipsAreTranslatedBarByBar)
{
    PlateformeDeTest::Courante().dossier.Ecrire(
        u"lang/english.ini"_s, "[MDIForm1]\r\nToolbar1_TT_6=Open a category\r\nToolbar2_TT_16=Help\r\n");
    EcrireOption(u"QRTLangue"_s, u"english"_s);
    Montrer();
    EXPECT_EQ(Bouton(u"ouvrir"_s, 1).toolTip(), "Open a category");
    EXPECT_EQ(Bouton(u"ouvrir"_s, 1).text(), "Open a category");
    EXPECT_EQ(Bouton(u"ouvrir"_s, 2).toolTip(), "ouvrir une catégorie");
    EXPECT_EQ(Bouton(u"aide"_s, 2).toolTip(), "Help");
}
