// The look and the state of a document's window.
#include "Form1EnFenetre.h"
#include "kit/Couleurs.h"

#include <QApplication>

using namespace Qt::StringLiterals;

TEST_F(Form1Test, TheStateOfTheWindowIsRemembered)
{
    const Form1& fenetre = Ouvrir();
    fenetre.parentWidget()->showNormal();
    QCoreApplication::processEvents();
    EXPECT_EQ(LireOption(u"SizeForm1"_s, {}).toString(), "0");
    fenetre.parentWidget()->showMaximized();
    QCoreApplication::processEvents();
    EXPECT_EQ(LireOption(u"SizeForm1"_s, {}).toString(), "2");
    fenetre.parentWidget()->showMinimized();
    QCoreApplication::processEvents();
    EXPECT_EQ(LireOption(u"SizeForm1"_s, {}).toString(), "1");
}

TEST_F(Form1Test, OpeningADocumentLeavesTheStateAsItWasSet)
{
    EcrireOption(u"SizeForm1"_s, 2);
    Ouvrir(u"a.qrt"_s);
    EXPECT_EQ(LireOption(u"SizeForm1"_s, {}).toString(), "2");
    Ouvrir(u"b.qrt"_s);
    EXPECT_EQ(LireOption(u"SizeForm1"_s, {}).toString(), "2");
}

TEST_F(Form1Test, AReducedWindowOnlyCounts)
{
    Form1& fenetre = Ouvrir();
    fenetre.parentWidget()->showMinimized();
    QCoreApplication::processEvents();
    fenetre.myqrt.MyLV->ListItems.Remove(1);
    EcrireOption(u"FontBold"_s, true);
    fenetre.RedrawAll(true);
    EXPECT_EQ(Panneau(fenetre, 1), u"2 entrée(s)"_s);
    EXPECT_FALSE(fenetre.ListView1().font().bold()) << "its layout waits until it is seen again";
    fenetre.parentWidget()->showNormal();
    QCoreApplication::processEvents();
    EXPECT_TRUE(fenetre.ListView1().font().bold());
}

TEST_F(Form1Test, AWindowThatComesBackInItsSizeIsLaidOutAnew)
{
    EcrireOption(u"SizeForm1"_s, int(Normale));
    Form1& fenetre = Ouvrir();
    const QSize taille = fenetre.size();
    fenetre.parentWidget()->showMinimized();
    QCoreApplication::processEvents();
    fenetre.mAfficherImages_Click();
    fenetre.parentWidget()->showNormal();
    QCoreApplication::processEvents();
    EXPECT_EQ(fenetre.size(), taille);
    EXPECT_EQ(Img(fenetre).isVisible(), fenetre.ImagesMontrees());
}

TEST_F(Form1Test, SortingRefreshingAndComingToTheFrontRedoTheLayout)
{
    EcrireOption(u"SizeForm1"_s, int(Normale)); // a maximised window comes to the front by a change of its size
    Form1& a = Ouvrir(u"a.qrt"_s);
    Ouvrir(u"b.qrt"_s);
    const std::pair<QString, std::function<void()>> gestes[] = {
        {u"activation"_s, [&] { cadre.AmenerDevant(a); }},
        {u"sort"_s, [&] { CliquerTitre(a, 1); }},
        {u"refresh"_s, [&] { Commande(a, u"mActualiser"_s).trigger(); }},
    };
    bool gras = false;
    for (const auto& [nom, geste] : gestes) {
        gras = !gras;
        EcrireOption(u"FontBold"_s, gras);
        geste();
        EXPECT_EQ(a.ListView1().font().bold(), gras) << nom.toStdString();
    }
    a.myqrt.IlFautSauver = false;
}

TEST_F(Form1Test, TheFocusRefreshesTheCounts)
{
    const Form1& fenetre = Ouvrir();
    fenetre.ListView1().clearFocus();
    fenetre.findChild<QLabel*>(u"StatusBar1_1"_s)->setText(u"?"_s);
    fenetre.ListView1().setFocus();
    EXPECT_EQ(Panneau(fenetre, 1), u"3 entrée(s)"_s);
}

TEST_F(Form1Test, TheFontAndTheColourAreThoseOfTheSettings)
{
    Form1& fenetre = Ouvrir();
    // As another process writes them.
    for (const auto& [cle, valeur] : {std::pair{u"FontSize"_s, u"17,5"_s}, std::pair{u"FontBold"_s, u"1"_s},
                                      std::pair{u"FontItalic"_s, u"1"_s}, std::pair{u"FontColor"_s, u"16744448"_s}})
        PlateformeDeTest::Courante().reglages.Ecrire(u"Options"_s, cle, valeur);
    fenetre.RedrawAll();
    EXPECT_FALSE(fenetre.ListView1().font().bold()) << "not before the layout is redone";
    fenetre.RedrawAll(true);
    const QFont police = fenetre.ListView1().font();
    EXPECT_EQ(police.pointSizeF(), 17.5);
    EXPECT_TRUE(police.bold());
    EXPECT_TRUE(police.italic());
    EXPECT_TRUE(fenetre.font().bold());
    const auto* nombre = fenetre.findChild<QLabel*>(u"StatusBar1_1"_s);
    EXPECT_GE(nombre->minimumWidth(), 22 * nombre->fontMetrics().averageCharWidth());
    EXPECT_EQ(fenetre.ListView1().palette().color(QPalette::Text), QColor(0, 0x80, 0xFF));
}

TEST_F(Form1Test, AFontAndAColourThatAreSetAreShownAtOnce)
{
    const Form1& fenetre = Ouvrir();
    EcrireOption(Options::FontSize, 21);
    EXPECT_EQ(fenetre.ListView1().font().pointSizeF(), 21);
    EcrireOption(Options::FontBold, true);
    EXPECT_TRUE(fenetre.ListView1().font().bold());
    EcrireOption(Options::FontItalic, true);
    EXPECT_TRUE(fenetre.ListView1().font().italic());
    const QString famille = QFontDatabase::families().last();
    EcrireOption(Options::FontName, famille);
    EXPECT_EQ(fenetre.ListView1().font().family(), famille);
    EcrireOption(Options::FontColor, 0xFF8000);
    EXPECT_EQ(fenetre.ListView1().palette().color(QPalette::Text), QColor(0, 0x80, 0xFF));
}

TEST_F(Form1Test, AColourThatDarkWindowsHideIsMadeLighterThere)
{
    const Form1& fenetre = Ouvrir();
    EcrireOption(Options::FontColor, 0x800000);
    const QColor bleu(0, 0, 0x80);
    const auto encre = [&fenetre] { return fenetre.ListView1().palette().color(QPalette::Text); };
    ASSERT_EQ(encre(), bleu);
    MettreCouleurs(true);
    QCoreApplication::processEvents();
    EXPECT_GE(Contraste(encre(), PaletteSombre().color(QPalette::Base)), 4.5);
    MettreCouleurs(false);
    QCoreApplication::processEvents();
    EXPECT_EQ(encre(), bleu);
}

TEST_F(Form1Test, WithoutAColourOfItsOwnTheTableTurnsDarkWithTheWindows)
{
    const Form1& fenetre = Ouvrir();
    MettreCouleurs(true);
    QCoreApplication::processEvents();
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::Base})
        EXPECT_EQ(fenetre.ListView1().palette().color(role), PaletteSombre().color(role));
    MettreCouleurs(false);
    QCoreApplication::processEvents();
    EXPECT_EQ(fenetre.ListView1().palette().color(QPalette::Text), QApplication::palette().color(QPalette::Text));
}

TEST_F(Form1Test, WithoutSettingsTheTableLooksLikeTheDesktop)
{
    const Form1& fenetre = Ouvrir();
    EXPECT_EQ(fenetre.ListView1().font().pointSizeF(), QApplication::font().pointSizeF());
    EXPECT_EQ(fenetre.ListView1().font().family(), QApplication::font().family());
    EXPECT_EQ(fenetre.ListView1().palette().color(QPalette::Text), QApplication::palette().color(QPalette::Text));
}

TEST_F(Form1Test, SettingsThatAreNoFontChangeNothing)
{
    Form1& fenetre = Ouvrir();
    EcrireOption(u"FontSize"_s, u"-3"_s);
    EcrireOption(u"FontName"_s, u"No such family"_s);
    EcrireOption(u"FontColor"_s, u"red"_s);
    fenetre.RedrawAll(true);
    EXPECT_EQ(fenetre.ListView1().font().pointSizeF(), QApplication::font().pointSizeF());
    EXPECT_EQ(fenetre.ListView1().palette().color(QPalette::Text), QApplication::palette().color(QPalette::Text));
}

TEST_F(Form1Test, AnEmptyTableTellsTheKeyThatAddsAnEntry)
{
    const Form1& fenetre = Ouvrir(u"vide.qrt"_s, {});
    EXPECT_EQ(fenetre.ListView1().Invitation(), "Aucune entrée pour l'instant : Ctrl+E en ajoute une");
    fenetre.myqrt.Ouvrir->Montrer(true);
    EXPECT_EQ(fenetre.ListView1().Invitation(), "") << "entries are still to come";
}
