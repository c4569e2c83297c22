#include "output/frmExport.h"

#include "base/MenuSurgissant.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <QCheckBox>
#include <QContextMenuEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Answers each menu with one item.
struct MenuDeTest : PresentateurMenus
{
    MenuDeTest() : avant(InstallerPresentateur(this)) {}
    ~MenuDeTest() override { InstallerPresentateur(avant); }
    MenuDeTest(const MenuDeTest&) = delete;
    MenuDeTest& operator=(const MenuDeTest&) = delete;

    QString Choisir(const QString& menu, const QPoint& endroit) override
    {
        menus.append(menu);
        place = endroit;
        return choix;
    }
    PresentateurMenus* avant;
    QStringList menus;
    QPoint place;
    QString choix;
};

class FrmExportTest : public testing::Test
{
protected:
    FrmExportTest()
    {
        form.AjouterColonne(u"Titre"_s, true);
        form.AjouterColonne(u"Artiste"_s, false);
        form.AjouterColonne(u"Prêté"_s, true);
    }
    void Montrer()
    {
        form.show();
        form.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    }
    template<class Controle> Controle& Le(const char* nom) { return *form.findChild<Controle*>(nom); }
    QListWidget& List1() { return Le<QListWidget>("List1"); }
    QString Coches() const
    {
        QString coches;
        for (const bool cochee : form.Cochees())
            coches += cochee ? u'x' : u'-';
        return coches;
    }
    void Cliquer(const char* nom) { QTest::mouseClick(&Le<QAbstractButton>(nom), Qt::LeftButton); }
    void CliquerSurCoche(int ligne)
    {
        const QRect place = List1().visualItemRect(List1().item(ligne - 1));
        QTest::mouseClick(List1().viewport(), Qt::LeftButton, {}, QPoint(place.left() + 10, place.center().y()));
    }
    void ChoisirAuMenu(const QString& item)
    {
        menus.choix = item;
        const QPoint ici(7, 9);
        QContextMenuEvent demande(QContextMenuEvent::Mouse, ici, List1().viewport()->mapToGlobal(ici));
        QApplication::sendEvent(List1().viewport(), &demande);
    }

    FileDeReponses reponses;
    MenuDeTest menus;
    frmExport form;
};

} // namespace

TEST_F(FrmExportTest, SaysWhatItIsFor)
{
    EXPECT_EQ(form.windowTitle(), "Exporter la selection");
    EXPECT_EQ(Le<QLabel>("Label1").text(), "Selectionnez les colones que vous souhaitez exporter");
    const auto option = [this](const char* nom) {
        const QCheckBox& controle = Le<QCheckBox>(nom);
        EXPECT_FALSE(controle.isChecked()) << nom;
        EXPECT_FALSE(controle.isHidden()) << nom;
        return controle.text().remove(u'&') + u": "_s + controle.toolTip();
    };
    EXPECT_EQ(option("Check1"), u"Selection uniquement: Exporte uniquement les entrées selectionnées"_s);
    EXPECT_EQ(option("Check2"), u"Voir le resultat: Ouvre le fichier a la fin de la création"_s);
    EXPECT_EQ(option("Check3"), u"Numéroter: Rajoute une colonne numero"_s);
    EXPECT_EQ(Le<QPushButton>("btExporter").text().remove(u'&'), "Exporter");
    EXPECT_EQ(Le<QPushButton>("Annuler").text().remove(u'&'), "Annuler");
    EXPECT_FALSE(Le<QPushButton>("Annuler").icon().isNull());
}

TEST_F(FrmExportTest, ShowsTheColumnsInTheirOrder)
{
    ASSERT_EQ(List1().count(), 3);
    EXPECT_EQ(List1().item(0)->text(), "Titre");
    EXPECT_EQ(List1().item(1)->text(), "Artiste");
    EXPECT_EQ(List1().item(2)->text(), u"Prêté"_s);
    EXPECT_EQ(Coches(), "x-x");
}

TEST_F(FrmExportTest, TakesWhatTheUserTicks)
{
    Montrer();
    CliquerSurCoche(2);
    CliquerSurCoche(1);
    EXPECT_EQ(Coches(), "-xx");
    EXPECT_FALSE(form.Valide);
    Cliquer("btExporter");
    EXPECT_TRUE(form.Valide);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(Coches(), "-xx") << "it can still be read";
}

TEST_F(FrmExportTest, WorksWithTheKeyboardAlone)
{
    Montrer();
    EXPECT_EQ(form.focusWidget(), &List1());
    EXPECT_EQ(List1().currentRow(), 0);
    QTest::keyClick(&List1(), Qt::Key_Down);
    QTest::keyClick(&List1(), Qt::Key_Space);
    EXPECT_EQ(Coches(), "xxx");
    QTest::keyClick(&List1(), Qt::Key_Return);
    EXPECT_TRUE(form.Valide);
}

TEST_F(FrmExportTest, ClosesWithoutAChoice)
{
    for (const auto& fermer :
         {std::function<void()>([this] { Cliquer("Annuler"); }), std::function<void()>([this] { form.close(); }),
          std::function<void()>([this] { QTest::keyClick(&form, Qt::Key_Escape); })}) {
        Montrer();
        fermer();
        EXPECT_FALSE(form.isVisible());
        EXPECT_FALSE(form.Valide);
    }
}

TEST_F(FrmExportTest, TheMenuTicksAll)
{
    ChoisirAuMenu("mSeclectAll");
    EXPECT_EQ(Coches(), "xxx");
    EXPECT_EQ(menus.menus, QStringList({"MenuExporte"}));
    EXPECT_EQ(menus.place, List1().viewport()->mapToGlobal(QPoint(7, 9)));
}

TEST_F(FrmExportTest, TheMenuInverts)
{
    ChoisirAuMenu("mSelectInvert");
    EXPECT_EQ(Coches(), "-x-");
}

TEST_F(FrmExportTest, AMenuThatIsLeftTicksNothing)
{
    ChoisirAuMenu("");
    EXPECT_EQ(Coches(), "x-x");
}

TEST_F(FrmExportTest, WithoutAnyColumnItStays)
{
    Montrer();
    ChoisirAuMenu("mSelectRien");
    EXPECT_EQ(Coches(), "---");
    Cliquer("btExporter");
    EXPECT_EQ(reponses.Cles(), QStringList({"msg34"}));
    EXPECT_EQ(reponses.Affiches()[0].message.texte, "il faut selectionner au moins une colonne");
    EXPECT_EQ(reponses.Affiches()[0].genre, MsgOk);
    EXPECT_FALSE(form.Valide);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.focusWidget(), &List1());
}

TEST_F(FrmExportTest, ServesAsAChooserUnderOtherWords)
{
    form.ServirDeChoix(u"Options"_s, u"Lesquelles ?"_s, u"Prendre"_s);
    Montrer();
    EXPECT_EQ(form.windowTitle(), "Options");
    EXPECT_EQ(Le<QLabel>("Label1").text(), "Lesquelles ?");
    EXPECT_EQ(List1().accessibleName(), "Lesquelles ?");
    EXPECT_EQ(Le<QPushButton>("btExporter").text(), "Prendre");
    for (const char* nom : {"Check1", "Check2", "Check3"})
        EXPECT_FALSE(Le<QCheckBox>(nom).isVisible()) << nom;
}

TEST_F(FrmExportTest, ATitleStandsOnOneLine)
{
    form.AjouterColonne(u"deux\nlignes"_s, true);
    EXPECT_EQ(List1().item(3)->text(), "deux lignes");
}
