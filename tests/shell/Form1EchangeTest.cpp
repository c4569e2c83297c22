// Copy and paste, from the keys and menus of a document to its table.
#include "Form1EnFenetre.h"

#include "support/SuiteDeModales.h"

#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

SuiteDeModales::Etape Quitter(const QString& fenetre, const QString& bouton)
{
    return {fenetre,
            [bouton](QWidget& form) { QTest::mouseClick(form.findChild<QPushButton*>(bouton), Qt::LeftButton); }};
}

} // namespace

TEST_F(Form1Test, KeysCopyAndPasteFromOneCategoryToAnother)
{
    const Form1& a = Ouvrir(u"a.qrt"_s);
    CliquerEntree(a, 2);
    QTest::keyClick(&a.ListView1(), Qt::Key_C, Qt::ControlModifier);
    const Form1& b = Ouvrir(u"b.qrt"_s, {"Zoo|"});
    const SuiteDeModales suite({Quitter(u"frmDragAndDrop"_s, u"btOK"_s)});
    QTest::keyClick(&b.ListView1(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Titres(b), QStringList({"Dummy", "Zoo"})) << "at its place in the sorted table";
    EXPECT_TRUE(b.myqrt.IlFautSauver);
    EXPECT_FALSE(a.myqrt.IlFautSauver);
    EXPECT_EQ(Panneau(b, 1), u"2 entrée(s)"_s);
}

TEST_F(Form1Test, APasteThatIsRefusedClearsTheFlagAndLosesNothing)
{
    Form1& fenetre = Ouvrir();
    fenetre.myqrt.IlFautSauver = true;
    Commande(fenetre, u"mColler"_s).trigger();
    EXPECT_FALSE(fenetre.myqrt.IlFautSauver);
    EXPECT_TRUE(fenetre.myqrt.AChange());
}

TEST_F(Form1Test, CopiesByLotOpenFromTheMenu)
{
    const Form1& fenetre = Ouvrir();
    CliquerEntree(fenetre, 1);
    QCoreApplication::processEvents();
    Commande(fenetre, u"mCopier"_s).trigger();
    const SuiteDeModales suite({{u"frmCopieParLot"_s,
                                 [](QWidget& form) {
                                     QTest::keyClicks(form.focusWidget(), u"3"_s);
                                     QTest::keyClick(form.focusWidget(), Qt::Key_Return);
                                 }},
                                Quitter(u"frmDragAndDrop"_s, u"btOK"_s)});
    Commande(fenetre, u"mCopieParLot"_s).trigger();
    EXPECT_EQ(Titres(fenetre).count(u"Abbey Road"_s), 4);
    EXPECT_EQ(Panneau(fenetre, 2), u"1 selectionnée(s)"_s);
}

TEST_F(Form1Test, CopyNeedsASelection)
{
    const Form1& fenetre = Ouvrir();
    EXPECT_FALSE(Commande(fenetre, u"mCopier"_s).isEnabled());
    EXPECT_TRUE(Commande(fenetre, u"mColler"_s).isEnabled());
    EXPECT_TRUE(Commande(fenetre, u"mCopieParLot"_s).isEnabled());
}
