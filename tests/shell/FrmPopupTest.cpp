// The pop-up menus. That of the tabs is tested with the tabs.
#include "CadreEnFenetre.h"

#include "base/MenuSurgissant.h"
#include "extensions/langue/modLang.h"
#include "shell/Toolbars.h"
#include "support/FermeModales.h"
#include "support/PlateformeDeTest.h"

#include <QTimer>

#include <functional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

class FrmPopupTest : public CadreEnFenetre
{
protected:
    void TearDown() override
    {
        if (QWidget* menu = QApplication::activePopupWidget())
            menu->close();
    }
    QWidget& Popup() const { return *cadre->findChild<QWidget*>(u"frmPopup"_s); }
    QMenu& MenuNomme(const QString& nom) const { return *Popup().findChild<QMenu*>(nom); }
    QAction& Item(const QString& nom) const { return *Popup().findChild<QAction*>(nom, Qt::FindDirectChildrenOnly); }
    /// Names and captions of a menu, those of a submenu behind its own.
    QStringList Lignes(const QString& menu) const
    {
        QStringList lignes;
        for (const QAction* item : MenuNomme(menu).actions()) {
            if (item->isSeparator())
                continue;
            const QMenu* sous = item->menu();
            lignes.append((sous ? sous->objectName() : item->objectName()) + u'=' + item->text());
            if (sous)
                lignes += Captions(*sous);
        }
        return lignes;
    }
    /// Does `geste` on the menu that pops up next.
    static void AuMenu(std::function<void(QMenu&)> geste)
    {
        QTimer::singleShot(20, [geste = std::move(geste)] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_TRUE(menu);
            geste(*menu);
        });
    }
};

} // namespace

TEST_F(FrmPopupTest, TheMenusOfTheTableHaveTheirItemsInOrder)
{
    Montrer();
    EXPECT_EQ(Lignes(u"MenuClickDroit"_s),
              QStringList({u"mEditerEntree=Editer l'entrée"_s, u"mSupprEntree=Supprimer Entrée"_s,
                           u"mEditerCategorie=Editer Catégorie"_s, u"mRechercher=Rechercher"_s, u"mCopier1=Copier"_s,
                           u"mColler1=Coller"_s, u"mPrete=Prêté"_s, u"mRendu=Rendu"_s, u"mNouveau=Nouveau"_s,
                           u"mNouvelleEntree=Entrée"_s, u"mNouvelleCategorie=Catégorie"_s}));
    EXPECT_EQ(Lignes(u"MenuClickDroit2"_s),
              QStringList({u"mSupprEntrees=Supprimer Entrées"_s, u"mEditerCategorie2=Editer Catégorie"_s,
                           u"mRechercher2=Rechercher"_s, u"mCopier2=Copier"_s, u"mColler2=Coller"_s, u"mPrete2=Prêté"_s,
                           u"mRendu2=Rendu"_s, u"mNouveau2=Nouveau"_s, u"mNouvelleEntree2=Entrée"_s,
                           u"mNouvelleCategorie2=Catégorie"_s}));
    EXPECT_EQ(Lignes(u"MenuClickDroit3"_s),
              QStringList({u"mEditerCategorie3=Editer Catégorie"_s, u"mRechercher3=Rechercher"_s, u"mColler3=Coller"_s,
                           u"mNouveau3=Nouveau"_s, u"mNouvelleEntree3=Entrée"_s, u"mNouvelleCategorie3=Catégorie"_s}));
}

TEST_F(FrmPopupTest, TheMenusOfDialogsHaveTheirItemsInOrder)
{
    Montrer();
    EXPECT_EQ(Lignes(u"MenuExporte"_s),
              QStringList({u"mSeclectAll=Tout"_s, u"mSelectRien=Rien"_s, u"mSelectInvert=Inverser"_s}));
    EXPECT_EQ(Lignes(u"mMenuSupprimer"_s),
              QStringList({u"mCocher=Cocher"_s, u"mDecocher=Decocher"_s, u"mToutCocher=Tout Cocher"_s,
                           u"mToutDecocher=Tout Decocher"_s, u"mInverser=Inverser"_s}));
    for (const QString& nom :
         {u"mSeclectAll"_s, u"mSelectRien"_s, u"mSelectInvert"_s, u"mCocher"_s, u"mDecocher"_s, u"mInverser"_s})
        EXPECT_FALSE(Item(nom).icon().isNull()) << nom.toStdString();
}

TEST_F(FrmPopupTest, AnItemRunsTheCommandOfItsName)
{
    Montrer();
    const QList<std::pair<QString, QString>> lignes{
        {u"mEditerEntree"_s, u"editentree"_s},
        {u"mSupprEntree"_s, u"delentree"_s},
        {u"mSupprEntrees"_s, u"delentree"_s},
        {u"mEditerCategorie"_s, u"editcat"_s},
        {u"mEditerCategorie2"_s, u"editcat"_s},
        {u"mEditerCategorie3"_s, u"editcat"_s},
        {u"mRechercher"_s, u"rechercher"_s},
        {u"mRechercher2"_s, u"rechercher"_s},
        {u"mRechercher3"_s, u"rechercher"_s},
        {u"mPrete"_s, u"preter"_s},
        {u"mPrete2"_s, u"preter"_s},
        {u"mRendu"_s, u"rendu"_s},
        {u"mRendu2"_s, u"rendu"_s},
        {u"mNouvelleEntree"_s, u"addentree"_s},
        {u"mNouvelleEntree2"_s, u"addentree"_s},
        {u"mNouvelleEntree3"_s, u"addentree"_s},
        {u"mNouvelleCategorie"_s, u"addcat"_s},
        {u"mNouvelleCategorie2"_s, u"addcat"_s},
        {u"mNouvelleCategorie3"_s, u"addcat"_s},
        {u"mCopier1"_s, u"copier"_s},
        {u"mCopier2"_s, u"copier"_s},
        {u"mColler1"_s, u"coller"_s},
        {u"mColler2"_s, u"coller"_s},
        {u"mColler3"_s, u"coller"_s},
    };
    for (const auto& [nom, commande] : lignes) {
        EXPECT_EQ(Item(nom).property("commande").toString(), commande) << nom.toStdString();
        EXPECT_FALSE(Item(nom).icon().isNull()) << nom.toStdString();
    }
}

TEST_F(FrmPopupTest, EveryItemOpensTheWindowOfItsCommand)
{
    Montrer();
    Form1& a = Ouvrir(u"a.qrt"_s);
    const QList<std::pair<QString, QStringList>> fenetres{
        {u"frmEditEntree"_s, {u"mEditerEntree"_s, u"mNouvelleEntree"_s, u"mNouvelleEntree2"_s, u"mNouvelleEntree3"_s}},
        {u"frmSuppr"_s, {u"mSupprEntree"_s, u"mSupprEntrees"_s}},
        {u"frmEditerColonnes"_s, {u"mEditerCategorie"_s, u"mEditerCategorie2"_s, u"mEditerCategorie3"_s}},
        {u"frmAddCategorie2"_s, {u"mNouvelleCategorie"_s, u"mNouvelleCategorie2"_s, u"mNouvelleCategorie3"_s}},
    };
    for (const auto& [fenetre, items] : fenetres) {
        for (const QString& nom : items) {
            a.myqrt.MyLV->Selectionner(1, 1, true);
            const FermeModales modales;
            Item(nom).setEnabled(true);
            Item(nom).trigger();
            EXPECT_EQ(modales.fenetres, QStringList{fenetre}) << nom.toStdString();
        }
    }
    a.myqrt.IlFautSauver = false;
}

TEST_F(FrmPopupTest, TheClipboardIsInTheMenusOfTheTable)
{
    Montrer();
    Form1& a = Ouvrir(u"a.qrt"_s);
    a.myqrt.MyLV->Selectionner(1, 1, true);
    const FermeModales modales;
    cadre->MontrerMenuClickDroit(true, QPoint(10, 10));
    MenuNomme(u"MenuClickDroit"_s).close();
    std::optional<QString>& texte = PlateformeDeTest::Courante().pressePapiers.texte;
    for (const QString& nom : {u"mCopier1"_s, u"mCopier2"_s}) {
        texte.reset();
        Item(nom).trigger();
        EXPECT_TRUE(texte && texte->startsWith(u"[Zelvane]\r\n"_s)) << nom.toStdString();
    }
    for (const QString& nom : {u"mColler1"_s, u"mColler2"_s, u"mColler3"_s}) {
        a.myqrt.IlFautSauver = true;
        Item(nom).trigger();
        EXPECT_FALSE(a.myqrt.IlFautSauver) << nom.toStdString();
    }
    EXPECT_EQ(modales.fenetres, QStringList(3, u"frmDragAndDrop"_s));
}

TEST_F(FrmPopupTest, LendingIsInTheMenusOfASelection)
{
    Montrer();
    Form1& a = Ouvrir(u"a.qrt"_s);
    a.myqrt.MyLV->Selectionner(1, 1, true);
    const FermeModales modales;
    cadre->MontrerMenuClickDroit(true, QPoint(10, 10));
    MenuNomme(u"MenuClickDroit"_s).close();
    for (const QString& nom : {u"mPrete"_s, u"mPrete2"_s})
        Item(nom).trigger();
    EXPECT_EQ(modales.fenetres, QStringList(2, u"frmPreter"_s));
    for (const QString& nom : {u"mRendu"_s, u"mRendu2"_s}) {
        reponses.Preparer(RepNon);
        Item(nom).trigger();
    }
    EXPECT_EQ(reponses.Cles(), QStringList(2, u"msg33"_s));
    EXPECT_FALSE(a.myqrt.IlFautSauver);
}

TEST_F(FrmPopupTest, TheSearchIsInTheMenusOfTheTable)
{
    Montrer();
    Ouvrir(u"a.qrt"_s);
    const FermeModales modales;
    cadre->MontrerMenuClickDroit(false, QPoint(10, 10));
    MenuNomme(u"MenuClickDroit3"_s).close();
    for (const QString& nom : {u"mRechercher"_s, u"mRechercher2"_s, u"mRechercher3"_s})
        Item(nom).trigger();
    EXPECT_EQ(modales.fenetres, QStringList(3, u"frmRecherche"_s));
}

TEST_F(FrmPopupTest, DeletingByTheMenuNumbersTheKeysAnew)
{
    Montrer();
    const Form1& a = Ouvrir(u"a.qrt"_s);
    a.myqrt.MyLV->ListItems(1).SetKey(u"k77"_s);
    const FermeModales modales;
    cadre->MontrerMenuClickDroit(true, QPoint(10, 10));
    QMenu& menu = MenuNomme(u"MenuClickDroit"_s);
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(&Item(u"mSupprEntree"_s)).center());
    Laisser();
    EXPECT_EQ(ClesDe(*a.myqrt.MyLV), QStringList{u"k1"_s});
}

TEST_F(FrmPopupTest, TheSelectionDecidesWhichMenuOfTheTablePopsUp)
{
    Montrer();
    Ouvrir(u"a.qrt"_s);
    cadre->MontrerMenuClickDroit(true, QPoint(10, 10));
    EXPECT_EQ(QApplication::activePopupWidget(), &MenuNomme(u"MenuClickDroit"_s));
    MenuNomme(u"MenuClickDroit"_s).close();
    cadre->MontrerMenuClickDroit(false, QPoint(10, 10));
    EXPECT_EQ(QApplication::activePopupWidget(), &MenuNomme(u"MenuClickDroit3"_s));
}

TEST_F(FrmPopupTest, WithNothingSelectedThereIsNothingToEdit)
{
    Montrer();
    MyLV& table = *Ouvrir(u"a.qrt"_s).myqrt.MyLV;
    for (const bool choisie : {false, true}) {
        table.Selectionner(1, 1, choisie);
        cadre->MontrerMenuClickDroit(true, QPoint(10, 10));
        EXPECT_EQ(Item(u"mEditerEntree"_s).isEnabled(), choisie);
        EXPECT_TRUE(Item(u"mSupprEntree"_s).isEnabled());
        MenuNomme(u"MenuClickDroit"_s).close();
    }
}

TEST_F(FrmPopupTest, ClosingAllIsDisabledFromTheLoadOn)
{
    Montrer();
    EXPECT_FALSE(Item(u"mFermerTout"_s).isEnabled());
}

TEST_F(FrmPopupTest, TheLanguageIsAppliedAtTheLoadAndWhenItChanges)
{
    const DossierDeTest& programme = PlateformeDeTest::Courante().dossier;
    programme.Ecrire(u"lang/english.ini"_s, "[frmPopup]\r\nmCopier1_C=Copy\r\nmNouveau_C=New\r\n"
                                            "[MDIForm1]\r\nmColler1_C=wrong\r\n");
    programme.Ecrire(u"lang/deutsch.ini"_s, "[frmPopup]\r\nmCopier1_C=Kopieren\r\n");
    EcrireOption(u"QRTLangue"_s, u"english"_s);
    Montrer();
    EXPECT_EQ(Item(u"mCopier1"_s).text(), "Copy");
    EXPECT_EQ(MenuNomme(u"mNouveau"_s).title(), "New");
    EXPECT_EQ(Item(u"mColler1"_s).text(), "Coller") << "the menus are no part of the frame's section";
    ASSERT_TRUE(ChargerLangue(u"deutsch"_s));
    cadre->langChange();
    EXPECT_EQ(Item(u"mCopier1"_s).text(), "Kopieren");
}

// ---- Menus of dialogs

TEST_F(FrmPopupTest, ADialogLearnsTheNameOfTheItemChosen)
{
    Montrer();
    const QStringList items{u"mCocher"_s, u"mDecocher"_s, u"mToutCocher"_s, u"mToutDecocher"_s, u"mInverser"_s};
    for (const QString& item : items) {
        AuMenu([&](QMenu& menu) {
            QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(&Item(item)).center());
        });
        EXPECT_EQ(ChoisirDansMenu(u"mMenuSupprimer"_s, QPoint(10, 10)), item);
    }
    AuMenu([](QMenu& menu) {
        QTest::keyClick(&menu, Qt::Key_Down);
        QTest::keyClick(&menu, Qt::Key_Down);
        QTest::keyClick(&menu, Qt::Key_Return);
    });
    EXPECT_EQ(ChoisirDansMenu(u"MenuExporte"_s, QPoint(10, 10)), "mSelectRien");
}

TEST_F(FrmPopupTest, AMenuThatIsLeftOrUnknownChoosesNothing)
{
    Montrer();
    AuMenu([](QMenu& menu) { QTest::keyClick(&menu, Qt::Key_Escape); });
    EXPECT_EQ(ChoisirDansMenu(u"MenuExporte"_s, QPoint(10, 10)), "");
    EXPECT_EQ(ChoisirDansMenu(u"MenuDeNullePart"_s, QPoint(10, 10)), "");
    cadre.reset();
    EXPECT_EQ(ChoisirDansMenu(u"MenuExporte"_s, QPoint(10, 10)), "") << "the menus went with the frame";
}
