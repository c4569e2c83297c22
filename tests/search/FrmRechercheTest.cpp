// The search dialog: what it shows, how it searches.
#include "RechercheEnFenetre.h"

#include <QDir>
#include <QFile>
#include <QHelpEvent>
#include <QListWidget>
#include <QProgressBar>
#include <QThread>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

QString FocusDe(const QWidget& form)
{
    return form.focusWidget() ? form.focusWidget()->objectName() : QString();
}

/// A step in the chooser of columns: these lines (from 1) are changed, then it is validated.
SuiteDeModales::Etape ChangerColonnes(const QList<int>& lignes, const char* bouton = "btExporter")
{
    return {"frmExport", [=](QWidget& form) {
                auto& liste = Le<QListWidget>(form, "List1");
                for (const int ligne : lignes) {
                    const QRect place = liste.visualItemRect(liste.item(ligne - 1));
                    QTest::mouseClick(liste.viewport(), Qt::LeftButton, {},
                                      QPoint(place.left() + 10, place.center().y()));
                }
                Cliquer(form, bouton);
            }};
}

} // namespace

// ---- on load

TEST_F(FrmRechercheTest, OpensEmptyOverTheColumnsOfTheCategory)
{
    Lancer([this](QWidget& form) {
        EXPECT_EQ(form.windowTitle(), "Recherche");
        EXPECT_EQ(Le<QGroupBox>(form, "Frame1").title(), "Recherche dans /disques/R&&B.qrt")
            << "as a caption spells it";
        EXPECT_EQ(Compte(form), "");
        EXPECT_EQ(Resultats(form), QStringList());
        EXPECT_EQ(FocusDe(form), "Text1");
        const QAbstractItemModel& modele = *Liste(form).model();
        ASSERT_EQ(modele.columnCount(), 4);
        for (int i = 1; i <= 4; ++i) {
            EXPECT_EQ(modele.headerData(i - 1, Qt::Horizontal).toString(), table.ColumnHeaders(i).Text());
            EXPECT_EQ(Liste(form).Colonnes()(i).Width(), table.ColumnHeaders(i).Width());
        }
    });
}

TEST_F(FrmRechercheTest, SaysWhatItsControlsDo)
{
    Lancer([](QWidget& form) {
        const auto texte = [&](const char* nom) {
            auto& bouton = Le<QPushButton>(form, nom);
            return bouton.text().remove(u'&') + u'/' + bouton.toolTip();
        };
        EXPECT_EQ(texte("btRecherche"), "Rechercher/Lancer la Rechercher");
        EXPECT_EQ(texte("btOptions"), "Options/");
        EXPECT_EQ(texte("btAnnuler"), "Annuler/");
        EXPECT_EQ(texte("Command1"), "Exporter/");
        EXPECT_EQ(texte("Command2"), u"/Imprimer les résultats de la recherche"_s);
        EXPECT_EQ(Le<QLabel>(form, "Label1").text().remove(u'&'), "Rechercher le texte");
        EXPECT_EQ(Text1(form).toolTip(), "recherche le texte exact");
        EXPECT_TRUE(Le<QPushButton>(form, "btRecherche").isDefault());
    });
}

// ---- the search

TEST_F(FrmRechercheTest, ShowsWhatItFindsAndLeadsToIt)
{
    Lancer([](QWidget& form) {
        Chercher(form, u"BLUE"_s);
        EXPECT_EQ(Resultats(form, 1), QStringList({"Blue Train", "Kind of Blue"}));
        EXPECT_EQ(Resultats(form, 2), QStringList({"Coltrane", "Davis"}));
        EXPECT_EQ(Resultats(form, 4), QStringList({"", "Ida - 01/02/2026"}));
        EXPECT_EQ(Compte(form), u"'BLUE' à été trouvé 2 fois"_s);
        EXPECT_EQ(FocusDe(form), "ListView1");
        EXPECT_FALSE(Le<QPushButton>(form, "btRecherche").isDefault()) << "Enter is the list's now";
        QTest::keyClicks(&Text1(form), u"s"_s);
        EXPECT_TRUE(Le<QPushButton>(form, "btRecherche").isDefault()) << "another text is to be looked for";
    });
}

TEST_F(FrmRechercheTest, ItsButtonSearchesToo)
{
    Lancer([](QWidget& form) {
        Ecrire(form, u"jazz"_s);
        Cliquer(form, "btRecherche");
        EXPECT_EQ(Resultats(form), QStringList({"Blue Train", "Kind of Blue"})) << "letter case does not matter";
    });
}

TEST_F(FrmRechercheTest, WithoutATextThereIsNothingToSearch)
{
    Lancer([this](QWidget& form) {
        Chercher(form, u"dummy"_s);
        Ecrire(form, QString());
        Le<QPushButton>(form, "btOptions").setFocus();
        Cliquer(form, "btRecherche");
        EXPECT_EQ(reponses.Cles(), QStringList({"msg13"}));
        EXPECT_EQ(reponses.Affiches()[0].message.texte, u"Veuillez entrer un texte à rechercher"_s);
        EXPECT_EQ(FocusDe(form), "Text1");
        EXPECT_EQ(Resultats(form), QStringList({"Dummy"})) << "what was found before stays";
    });
}

TEST_F(FrmRechercheTest, NothingFoundIsTold)
{
    Lancer([this](QWidget& form) {
        Chercher(form, u"dummy"_s);
        Chercher(form, u"zzz"_s);
        EXPECT_EQ(reponses.Cles(), QStringList({"msg14"}));
        EXPECT_EQ(reponses.Affiches()[0].message.texte, u"Désolé rien n'a été trouvé"_s);
        EXPECT_EQ(FocusDe(form), "Text1");
        EXPECT_EQ(Text1(form).selectedText(), "zzz") << "what is typed next takes its place";
        EXPECT_EQ(Resultats(form), QStringList());
        EXPECT_EQ(Compte(form), "") << "the count of another search";
        EXPECT_TRUE(Le<QPushButton>(form, "btRecherche").isDefault());
    });
}

TEST_F(FrmRechercheTest, SearchesWhatWasSavedAndNotTheTable)
{
    table.ListItems(2).SetText(u"Third"_s);
    Lancer([this](QWidget& form) {
        Chercher(form, u"Third"_s);
        EXPECT_EQ(reponses.Cles(), QStringList({"msg14"}));
        Chercher(form, u"Dummy"_s);
        EXPECT_EQ(Resultats(form), QStringList({"Dummy"}));
    });
}

TEST_F(FrmRechercheTest, ASavedTextThatIsGoneOrCannotBeReadIsTold)
{
    const QString fichier = dossier.Fichier(u"Zelvane.qrt"_s);
    ASSERT_TRUE(QFile::remove(fichier));
    Lancer([&](QWidget& form) {
        Chercher(form, u"dummy"_s);
        EXPECT_EQ(reponses.Cles(), QStringList({"msgRechercheAbsente"}));
        ASSERT_TRUE(QDir().mkdir(fichier));
        Chercher(form, u"dummy"_s);
        EXPECT_EQ(reponses.Cles().last(), "msgRechercheIllisible");
        EXPECT_EQ(FocusDe(form), "Text1");
    });
}

TEST_F(FrmRechercheTest, TheWholeLineIsSearchedAtFirst)
{
    Lancer([](QWidget& form) {
        Chercher(form, u"|"_s);
        EXPECT_EQ(Resultats(form).size(), 4);
        Chercher(form, u"abbey.jpg"_s);
        EXPECT_EQ(Resultats(form), QStringList({"Abbey Road"}));
        Chercher(form, u"train|colt"_s);
        EXPECT_EQ(Resultats(form), QStringList({"Blue Train"}));
    });
}

TEST_F(FrmRechercheTest, TheTextMayHoldAnything)
{
    Lancer([this](QWidget& form) {
        Chercher(form, u"*.? & 100%1"_s);
        Text1(form).setText(QString(100000, u'é'));
        Cliquer(form, "btRecherche");
        EXPECT_EQ(reponses.Cles(), QStringList({"msg14", "msg14"}));
    });
}

// ---- the columns

TEST_F(FrmRechercheTest, TheChooserOfColumnsIsDressedForIt)
{
    Lancer({{"frmRecherche", [](QWidget& form) { Cliquer(form, "btOptions"); }},
            {"frmExport",
             [](QWidget& form) {
                 EXPECT_EQ(form.windowTitle(), "Options de recherche");
                 EXPECT_EQ(Le<QLabel>(form, "Label1").text(),
                           u"Selectionnez dans quelles colonnes sera effectuée la recherche"_s);
                 EXPECT_EQ(Le<QPushButton>(form, "btExporter").text(), "Valider");
                 const auto& liste = Le<QListWidget>(form, "List1");
                 QStringList lignes;
                 for (int i = 0; i < liste.count(); ++i)
                     lignes.append(liste.item(i)->text() + (liste.item(i)->checkState() == Qt::Checked ? u'x' : u'-'));
                 EXPECT_EQ(lignes, QStringList({"Titrex", "Artistex", "Genrex", u"Prêtéx"_s}));
                 for (const char* nom : {"Check1", "Check2", "Check3"})
                     EXPECT_FALSE(Le<QWidget>(form, nom).isVisible()) << nom;
                 Cliquer(form, "Annuler");
             }},
            {"frmRecherche", [](QWidget&) {}}});
}

TEST_F(FrmRechercheTest, ChosenColumnsAreSearchedOneByOne)
{
    Lancer({{"frmRecherche", [](QWidget& form) { Cliquer(form, "btOptions"); }},
            ChangerColonnes({1, 2, 4}),
            {"frmRecherche", [this](QWidget& form) {
                 const auto& recherche = dynamic_cast<frmRecherche&>(form);
                 EXPECT_FALSE(recherche.ToutesColonnes);
                 EXPECT_EQ(recherche.ColonnesRecherche, std::vector<bool>({false, false, true, false}));
                 Chercher(form, u"|"_s);
                 Chercher(form, u"abbey"_s);
                 EXPECT_EQ(reponses.Cles(), QStringList({"msg14", "msg14"}));
                 Chercher(form, u"jazz"_s);
                 EXPECT_EQ(Resultats(form), QStringList({"Blue Train", "Kind of Blue"}));
             }}});
}

TEST_F(FrmRechercheTest, AllColumnsAgainAreTheWholeLineAgain)
{
    Lancer({{"frmRecherche", [](QWidget& form) { Cliquer(form, "btOptions"); }},
            ChangerColonnes({1, 4}),
            {"frmRecherche",
             [](QWidget& form) {
                 EXPECT_FALSE(dynamic_cast<frmRecherche&>(form).ToutesColonnes);
                 Cliquer(form, "btOptions");
             }},
            ChangerColonnes({1, 4}),
            {"frmRecherche", [](QWidget& form) {
                 EXPECT_TRUE(dynamic_cast<frmRecherche&>(form).ToutesColonnes);
                 Chercher(form, u"abbey.jpg"_s);
                 EXPECT_EQ(Resultats(form), QStringList({"Abbey Road"}));
             }}});
}

TEST_F(FrmRechercheTest, AChoiceThatIsNotValidatedChangesNothing)
{
    Lancer({{"frmRecherche", [](QWidget& form) { Cliquer(form, "btOptions"); }},
            ChangerColonnes({1, 2}, "Annuler"),
            {"frmRecherche", [](QWidget& form) {
                 EXPECT_TRUE(dynamic_cast<frmRecherche&>(form).ToutesColonnes);
                 EXPECT_EQ(dynamic_cast<frmRecherche&>(form).ColonnesRecherche, std::vector<bool>(4, true));
             }}});
}

// ---- long searches

class LongueRecherche : public FrmRechercheTest
{
protected:
    /// More than is read between two events.
    LongueRecherche()
    {
        QList<QByteArray> entrees(120000, QByteArray("Dummy|") + QByteArray(90, 'x') + "|||");
        entrees.append("Fin||||");
        Charger(entrees);
    }
};

TEST_F(LongueRecherche, LetsTheUserCloseTheDialog)
{
    Lancer([](QWidget& form) {
        Ecrire(form, u"dummy"_s);
        Cliquer(form, "btRecherche");
        EXPECT_EQ(Compte(form), "") << "it goes on";
        QTest::keyClick(&form, Qt::Key_Escape);
        EXPECT_FALSE(form.isVisible());
    });
    QCoreApplication::processEvents();
}

TEST_F(LongueRecherche, MakesPlaceForAnotherOne)
{
    Lancer([](QWidget& form) {
        Ecrire(form, u"dummy"_s);
        Cliquer(form, "btRecherche");
        Ecrire(form, u"fin"_s);
        Cliquer(form, "btRecherche");
        ASSERT_TRUE(QTest::qWaitFor([&] { return !Compte(form).isEmpty(); }, 60000));
        EXPECT_EQ(Resultats(form), QStringList({"Fin"}));
        EXPECT_EQ(FocusDe(form), "ListView1");
    });
}

TEST_F(LongueRecherche, LeavesWhoTypesOnInTheField)
{
    Lancer([](QWidget& form) {
        Ecrire(form, u"dummy"_s);
        Cliquer(form, "btRecherche");
        Ecrire(form, u"dummy et"_s);
        ASSERT_TRUE(QTest::qWaitFor([&] { return !Compte(form).isEmpty(); }, 60000));
        EXPECT_EQ(Compte(form), u"'dummy' à été trouvé 120000 fois"_s);
        EXPECT_EQ(FocusDe(form), "Text1");
        EXPECT_TRUE(Le<QPushButton>(form, "btRecherche").isDefault());
    });
}

TEST_F(LongueRecherche, ShowsHowFarItIsWhenItTakesAWhile)
{
    Lancer([](QWidget& form) {
        auto& barre = Le<QProgressBar>(form, "Avancement");
        Ecrire(form, u"dummy"_s);
        Cliquer(form, "btRecherche");
        EXPECT_TRUE(barre.isHidden()) << "most are over at once";
        QThread::msleep(600);
        ASSERT_TRUE(QTest::qWaitFor([&] { return barre.isVisible() || !Compte(form).isEmpty(); }, 60000));
        EXPECT_TRUE(barre.isVisible());
        EXPECT_GT(barre.value(), 0);
        EXPECT_LT(barre.value(), 100);
        EXPECT_EQ(form.cursor().shape(), Qt::BusyCursor);
        ASSERT_TRUE(QTest::qWaitFor([&] { return !Compte(form).isEmpty(); }, 60000));
        EXPECT_TRUE(barre.isHidden());
        EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
    });
}

// ---- the window

TEST_F(FrmRechercheTest, IsNoSmallerThanItsContents)
{
    Lancer([](QWidget& form) {
        form.resize(10, 10);
        EXPECT_EQ(form.size(), form.minimumSize());
        EXPECT_GE(form.width(), Liste(form).PixelsDe(8715));
        EXPECT_GE(form.height(), Liste(form).PixelsDe(3690));
        const QSize liste = Liste(form).size();
        form.resize(form.size() + QSize(200, 100));
        EXPECT_EQ(Liste(form).size(), liste + QSize(200, 100)) << "the list takes what there is more";
    });
}

TEST_F(FrmRechercheTest, ShowsBothEndsOfALongPath)
{
    doc.SetCheminReel(u"/disques/"_s + QString(400, u'a') + u"/fin.qrt"_s);
    Lancer([this](QWidget& form) {
        const auto& cadreDeListe = Le<QGroupBox>(form, "Frame1");
        EXPECT_TRUE(cadreDeListe.title().startsWith(u"Recherche dans /disques/"_s));
        EXPECT_TRUE(cadreDeListe.title().endsWith(u"/fin.qrt"_s));
        EXPECT_LT(cadreDeListe.fontMetrics().horizontalAdvance(cadreDeListe.title()), cadreDeListe.width());
        EXPECT_EQ(cadreDeListe.accessibleName(), u"Recherche dans "_s + doc.CheminReel());
    });
}

TEST_F(FrmRechercheTest, ARowTellsItsFirstFields)
{
    Charger({"A<b>x</b>|Un & deux|||"});
    Lancer([](QWidget& form) {
        Chercher(form, u"un"_s);
        const QPoint place = PlaceDe(form, 1, 3);
        QHelpEvent demande(QEvent::ToolTip, place, Liste(form).viewport()->mapToGlobal(place));
        QApplication::sendEvent(Liste(form).viewport(), &demande);
        EXPECT_EQ(QToolTip::text(), "<qt>A&lt;b&gt;x&lt;/b&gt; &lt;&gt; Un &amp; deux</qt>");
        QHelpEvent ailleurs(QEvent::ToolTip, QPoint(5, 2000), QPoint(5, 2000));
        QApplication::sendEvent(Liste(form).viewport(), &ailleurs);
        EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
    });
}

TEST_F(FrmRechercheTest, EnterPressesTheButtonWithTheFocus)
{
    Lancer([](QWidget& form) {
        Ecrire(form, u"dummy"_s);
        Le<QPushButton>(form, "btAnnuler").setFocus();
        QTest::keyClick(form.focusWidget(), Qt::Key_Return);
        EXPECT_FALSE(form.isVisible());
    });
}
