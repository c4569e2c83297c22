// The frame without a mouse, and as assistive technologies see its tabs.
#include "CadreEnFenetre.h"

#include "shell/BarreOutils.h"

#include <QAccessible>
#include <QAction>
#include <QSignalSpy>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

class Navigation : public CadreEnFenetre
{
protected:
    /// To the widget with the keys.
    void Touche(Qt::Key touche, Qt::KeyboardModifiers avec = Qt::NoModifier) const
    {
        QWidget* cible = qApp->focusWidget() ? qApp->focusWidget() : static_cast<QWidget*>(cadre.get());
        QTest::keyClick(cible, touche, avec);
        Laisser();
    }
    BarreOutils& LaBarre(const QString& nom) const { return *cadre->findChild<BarreOutils*>(nom); }
    QString BoutonEnMain() const
    {
        const auto* bouton = qobject_cast<QToolButton*>(qApp->focusWidget());
        return bouton && bouton->defaultAction() ? bouton->defaultAction()->data().toString() : QString();
    }
    QAccessibleInterface& Face() const { return *QAccessible::queryAccessibleInterface(&Onglets()); }
};

} // namespace

TEST_F(Navigation, F6GoesRoundTableBarAndTabs)
{
    Montrer();
    const Form1& document = Ouvrir(u"a.qrt"_s);
    ASSERT_EQ(qApp->focusWidget(), &document.ListView1());
    Touche(Qt::Key_F6);
    EXPECT_EQ(BoutonEnMain(), "addentree");
    Touche(Qt::Key_F6);
    EXPECT_EQ(qApp->focusWidget(), &Onglets());
    Touche(Qt::Key_F6);
    EXPECT_EQ(qApp->focusWidget(), &document.ListView1());
    Touche(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(qApp->focusWidget(), &Onglets());
    Touche(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(BoutonEnMain(), "addentree");
    Touche(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(qApp->focusWidget(), &document.ListView1());
}

TEST_F(Navigation, WithoutADocumentF6LeadsToTheBarThatIsSeenAndBackToThePanel)
{
    Montrer();
    QWidget* const premier = cadre->findChild<QWidget*>(u"btNouvelle"_s);
    EXPECT_EQ(qApp->focusWidget(), premier) << "there is nothing else to do";
    Touche(Qt::Key_F6);
    EXPECT_EQ(BoutonEnMain(), "addcat") << "the first one that can be pressed";
    Touche(Qt::Key_F6);
    EXPECT_EQ(qApp->focusWidget(), premier);
    EcrireOption(Options::GrandesIcones, true);
    Touche(Qt::Key_F6);
    EXPECT_TRUE(LaBarre(u"Toolbar2"_s).isAncestorOf(qApp->focusWidget()));
    Touche(Qt::Key_Escape);
    EXPECT_EQ(qApp->focusWidget(), premier);
}

TEST_F(Navigation, EscapeLeadsBackToTheTable)
{
    Montrer();
    const Form1& document = Ouvrir(u"a.qrt"_s);
    Touche(Qt::Key_F6);
    Touche(Qt::Key_Escape);
    EXPECT_EQ(qApp->focusWidget(), &document.ListView1());
    Touche(Qt::Key_F6, Qt::ShiftModifier);
    Touche(Qt::Key_Escape);
    EXPECT_EQ(qApp->focusWidget(), &document.ListView1());
}

TEST_F(Navigation, ArrowsGoFromButtonToButtonAndEnterPressesOne)
{
    Montrer();
    Ouvrir(u"a.qrt"_s);
    Touche(Qt::Key_F6);
    QSignalSpy presse(&LaBarre(u"Toolbar1"_s), &BarreOutils::BoutonPresse);
    QStringList passes;
    for (int i = 0; i < 4; ++i) {
        passes.append(BoutonEnMain());
        Touche(Qt::Key_Right);
    }
    EXPECT_EQ(passes.mid(0, 2), QStringList({"addentree", "delentree"})) << "nothing is selected to edit";
    Touche(Qt::Key_End);
    EXPECT_EQ(BoutonEnMain(), "aide");
    Touche(Qt::Key_Right);
    EXPECT_EQ(BoutonEnMain(), "aide");
    Touche(Qt::Key_Left);
    EXPECT_EQ(BoutonEnMain(), "apropos");
    Touche(Qt::Key_Home);
    EXPECT_EQ(BoutonEnMain(), "addentree");
    for (int i = 0; i < 20 && BoutonEnMain() != "grille"; ++i)
        Touche(Qt::Key_Right);
    EXPECT_EQ(presse.count(), 0);
    Touche(Qt::Key_Return);
    Touche(Qt::Key_Space);
    ASSERT_EQ(presse.count(), 2);
    EXPECT_EQ(presse[0][0].toString(), "grille");
    EXPECT_EQ(presse[1][0].toString(), "grille");
    EXPECT_EQ(BoutonEnMain(), "grille") << "the keys stay where they are";
}

TEST_F(Navigation, CtrlTabAndCtrlPageGoFromDocumentToDocument)
{
    Montrer();
    const Form1& a = Ouvrir(u"a.qrt"_s);
    const Form1& b = Ouvrir(u"b.qrt"_s);
    const Form1& c = Ouvrir(u"c.qrt"_s);
    for (const Form1* attendu : {&a, &b, &c}) {
        Touche(Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(cadre->FenetreActive(), attendu);
        EXPECT_EQ(qApp->focusWidget(), &attendu->ListView1());
    }
    for (const Form1* attendu : {&b, &a, &c}) {
        Touche(Qt::Key_PageUp, Qt::ControlModifier);
        EXPECT_EQ(cadre->FenetreActive(), attendu);
    }
    Touche(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(cadre->FenetreActive(), &a);
    Touche(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(cadre->FenetreActive(), &c);
}

TEST_F(Navigation, WithoutADocumentTheKeysOfDocumentsDoNothing)
{
    Montrer();
    Touche(Qt::Key_Tab, Qt::ControlModifier);
    Touche(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(cadre->FenetreActive(), nullptr);
}

// ---- tabs

TEST_F(Navigation, TheSelectedTabIsTold)
{
    Montrer();
    Ouvrir(u"a.qrt"_s);
    Ouvrir(u"R&B.qrt"_s);
    EXPECT_EQ(Face().role(), QAccessible::PageTabList);
    EXPECT_EQ(Face().text(QAccessible::Name), u"Onglets des catégories"_s);
    ASSERT_EQ(Face().childCount(), 2);
    const auto choisis = [this] {
        return std::pair(bool(Face().child(0)->state().selected), bool(Face().child(1)->state().selected));
    };
    EXPECT_EQ(Face().child(1)->role(), QAccessible::PageTab);
    EXPECT_EQ(Face().child(1)->text(QAccessible::Name), "R&B.qrt");
    EXPECT_TRUE(Face().child(1)->state().selectable);
    EXPECT_EQ(choisis(), std::pair(false, true));
    CliquerOnglet(1);
    EXPECT_EQ(choisis(), std::pair(true, false));
    EXPECT_EQ(Face().child(0)->parent(), &Face());
    EXPECT_EQ(Face().indexOfChild(Face().child(1)), 1);
    EXPECT_EQ(Face().focusChild(), nullptr);
    Onglets().setFocus();
    EXPECT_EQ(Face().focusChild(), Face().child(0));
    EXPECT_TRUE(Face().child(0)->state().focused);
}

TEST_F(Navigation, AssistiveTechnologiesFindAndPressATab)
{
    Montrer();
    const Form1& a = Ouvrir(u"a.qrt"_s);
    Ouvrir(u"b.qrt"_s);
    const QPoint place = Onglets().mapToGlobal(Onglets().tabRect(0).center());
    EXPECT_TRUE(Face().child(0)->rect().contains(place));
    EXPECT_EQ(Face().childAt(place.x(), place.y()), Face().child(0));
    QAccessibleActionInterface* actions = Face().child(0)->actionInterface();
    EXPECT_EQ(actions->actionNames(), QStringList(QAccessibleActionInterface::pressAction()));
    actions->doAction(QAccessibleActionInterface::pressAction());
    Laisser();
    EXPECT_EQ(cadre->FenetreActive(), &a);
    a.parentWidget()->showMinimized();
    Laisser();
    actions->doAction(QAccessibleActionInterface::pressAction());
    Laisser();
    EXPECT_FALSE(a.parentWidget()->isMinimized()) << "as a click on it does";
}

TEST_F(Navigation, ATabThatIsGoneIsToldSo)
{
    Montrer();
    Ouvrir(u"a.qrt"_s);
    Form1& b = Ouvrir(u"b.qrt"_s);
    QAccessibleInterface* onglet = Face().child(1);
    b.Decharger();
    Laisser();
    EXPECT_EQ(Face().childCount(), 1);
    EXPECT_FALSE(onglet->isValid());
    EXPECT_TRUE(onglet->state().invalid);
    EXPECT_EQ(onglet->text(QAccessible::Name), "");
}
