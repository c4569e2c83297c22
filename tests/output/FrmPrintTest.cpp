// The print dialog by itself: the sheet, the columns, the printers.
#include "output/frmPrint.h"

#include "ImpressionDeTest.h"
#include "base/Options.h"
#include "output/ColonnesDeFeuille.h"
#include "support/Accessibilite.h"
#include "support/FileDeReponses.h"
#include "support/GardeModale.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

template<class T> T& De(const QWidget& form, const char* nom)
{
    return *form.findChild<T*>(QString::fromLatin1(nom));
}

class FrmPrintTest : public testing::Test
{
protected:
    FrmPrintTest() { EcrireOption(Options::MessageImprim, false); }

    frmPrint& Ouvrir()
    {
        m_form = std::make_unique<frmPrint>(dossier.Chemin());
        m_form->TexteEntete = u"%titre% - %nb% %nomcat%"_s;
        m_form->TitreImpression = u"Mes listes"_s;
        m_form->NombreEntrees = u"##"_s;
        m_form->NomCategorie = u"jazz.qrt"_s;
        m_form->ActualiseNomCat();
        m_form->MontrerColonnes({{u"Titre"_s, 30}, {u"Artiste"_s, 20}, {u"Année"_s, 10}});
        m_form->MontrerRangees(12);
        m_form->show();
        return *m_form;
    }
    std::vector<double> Largeurs() const
    {
        std::vector<double> largeurs;
        for (const Feuille::Colonne& colonne : m_form->Disposition().colonnes)
            largeurs.push_back(colonne.largeur);
        return largeurs;
    }
    QStringList Liste() const
    {
        const auto& liste = De<QTableWidget>(*m_form, "Largeurs");
        QStringList lignes;
        for (int i = 0; i < liste.rowCount(); ++i) {
            lignes.append(u"%1 %2 %3"_s.arg(liste.item(i, 0)->checkState() == Qt::Checked ? u"x"_s : u"-"_s,
                                            liste.item(i, 0)->text(), liste.item(i, 1)->data(Qt::EditRole).toString()));
        }
        return lignes;
    }
    ColonnesDeFeuille& LV1() const { return De<ColonnesDeFeuille>(*m_form, "LV1"); }
    /// Pixels of a millimetre of the sheet.
    double Echelle() const { return LV1().height() / 101.865; }
    /// Takes hold `ecart` pixels beside a place and lets go further on, both in millimetres of the sheet.
    void Tirer(double de, double vers, int ecart = 0) const
    {
        const QPoint debut(qRound(de * Echelle()) + ecart, 5), fin(qRound(vers * Echelle()) + ecart, 5);
        QTest::mousePress(&LV1(), Qt::LeftButton, {}, debut);
        QTest::mouseMove(&LV1(), (debut + fin) / 2);
        QTest::mouseMove(&LV1(), fin);
        QTest::mouseRelease(&LV1(), Qt::LeftButton, {}, fin);
    }
    static void Cliquer(QWidget& form, const char* nom)
    {
        auto& bouton = De<QAbstractButton>(form, nom);
        QTest::mouseClick(&bouton, Qt::LeftButton, {}, QPoint(10, bouton.height() / 2));
    }

    DossierDeTest dossier;
    FileDeReponses reponses;
    std::unique_ptr<frmPrint> m_form;
};

constexpr double Pixel = 0.3; // mm of the sheet, about

} // namespace

TEST_F(FrmPrintTest, ShowsItsTexts)
{
    frmPrint& form = Ouvrir();
    EXPECT_EQ(form.windowTitle(), "Apperçu avant impression");
    EXPECT_EQ(De<QLabel>(form, "Label3").text(), "Choisissez l'imprimante :");
    const auto texte = [&form](const char* nom) { return De<QAbstractButton>(form, nom).text().remove(u'&'); };
    EXPECT_EQ(texte("Option1_0"), "Tout");
    EXPECT_EQ(texte("Option1_1"), "Sélection");
    EXPECT_EQ(texte("btOption"), "Options");
    EXPECT_EQ(texte("Command1"), "Imprimer");
    EXPECT_EQ(texte("Command2"), "Annuler");
    EXPECT_EQ(ControlesSansNom(form), QStringList());
    EXPECT_TRUE(De<QPushButton>(form, "Command1").isDefault());
}

TEST_F(FrmPrintTest, TellsHowColumnsAreLeftOutUnlessSwitchedOff)
{
    Ouvrir();
    EXPECT_EQ(reponses.Cles(), QStringList());
    EcrireOption(Options::MessageImprim, true);
    Ouvrir();
    ASSERT_EQ(reponses.Cles(), QStringList("msg29"));
    EXPECT_EQ(reponses.Affiches()[0].message.texte,
              "Redimensionnez les colonnes, pour qu'elles tiennent sur une page.\n"
              "Pour ne pas imprimer une colonne donnez lui une taille nulle");
}

TEST_F(FrmPrintTest, TheHeadingStandsForItsTemplate)
{
    const frmPrint nouvelle(dossier.Chemin());
    EXPECT_EQ(De<QLabel>(nouvelle, "NomCat").text(), "Zelvane v2.2 -");
    frmPrint& form = Ouvrir();
    EXPECT_EQ(De<QLabel>(form, "NomCat").text(), "Mes listes - ## jazz.qrt");
    EXPECT_EQ(form.Disposition().NomCat.texte, "Mes listes - ## jazz.qrt");
    EXPECT_EQ(De<QLabel>(form, "Page").text(), "1");
}

// ---- printers

TEST_F(FrmPrintTest, ListsThePrintersAndAFileLast)
{
    const ImprimanteEnMemoire imprimante;
    frmPrint& form = Ouvrir();
    const auto& liste = De<QComboBox>(form, "Combo1");
    ASSERT_EQ(liste.count(), 3);
    EXPECT_EQ(liste.itemText(0), "Bureau");
    EXPECT_EQ(liste.itemText(2), "Imprimer dans un fichier PDF");
    EXPECT_EQ(form.Imprimante(), "Salon") << "the system's";
    EXPECT_FALSE(form.VersUnFichier());
    QTest::keyClick(&De<QComboBox>(form, "Combo1"), Qt::Key_End);
    EXPECT_EQ(form.Imprimante(), "Imprimer dans un fichier PDF");
    EXPECT_TRUE(form.VersUnFichier());
}

TEST_F(FrmPrintTest, TheOneChosenLastIsTheCurrentOne)
{
    const ImprimanteEnMemoire imprimante;
    plateforme().imprimantes->Choisir(u"Bureau"_s);
    EXPECT_EQ(Ouvrir().Imprimante(), "Bureau");
    plateforme().imprimantes->Choisir(u"Imprimer dans un fichier PDF"_s);
    EXPECT_TRUE(Ouvrir().VersUnFichier());
}

TEST_F(FrmPrintTest, WithoutPrintersThereIsTheFile)
{
    frmPrint& form = Ouvrir();
    EXPECT_EQ(De<QComboBox>(form, "Combo1").count(), 1);
    EXPECT_TRUE(form.VersUnFichier());
}

TEST_F(FrmPrintTest, WithoutAPrinterChosenItStaysOpen)
{
    const ImprimanteEnMemoire imprimante;
    PlateformeDeTest::Courante().imprimantes.parDefaut.clear();
    frmPrint& form = Ouvrir();
    EXPECT_EQ(form.Imprimante(), "");
    Cliquer(form, "Command1");
    ASSERT_EQ(reponses.Cles(), QStringList("msg28"));
    EXPECT_EQ(reponses.Affiches()[0].message.texte, "Veuillez selectionner une imprimante");
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.Tag, "");
    QTest::keyClick(&De<QComboBox>(form, "Combo1"), Qt::Key_Down);
    Cliquer(form, "Command1");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.Tag, "<>");
}

// ---- closing

TEST_F(FrmPrintTest, PrintIsTheDefaultAndMarks)
{
    frmPrint& form = Ouvrir();
    QTest::keyClick(&form, Qt::Key_Return);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.Tag, "<>");
    EXPECT_EQ(Largeurs(), std::vector<double>({30, 20, 10})) << "it can be read when it is closed";
}

TEST_F(FrmPrintTest, CancelMarksNothing)
{
    for (const bool echap : {false, true}) {
        frmPrint& form = Ouvrir();
        form.Tag = u"<>"_s;
        if (echap) {
            form.Tag.clear();
            QTest::keyClick(&form, Qt::Key_Escape);
        } else {
            Cliquer(form, "Command2");
        }
        EXPECT_FALSE(form.isVisible());
        EXPECT_EQ(form.Tag, "");
        EXPECT_FALSE(form.OptionsModifiees);
    }
}

// ---- all or the selection

TEST_F(FrmPrintTest, AClickOnAllOrSelectionIsWrittenAtOnce)
{
    frmPrint& form = Ouvrir();
    EXPECT_FALSE(form.SelectionSeule());
    Cliquer(form, "Option1_1");
    EXPECT_TRUE(form.SelectionSeule());
    EXPECT_TRUE(form.OptionsModifiees);
    EXPECT_EQ(dossier.Lire("print.ini"), "[Impression]\r\nSelOnly=1\r\n");
    Cliquer(form, "Command2");
    EXPECT_TRUE(Ouvrir().SelectionSeule()) << "also where it was cancelled then";
    EXPECT_FALSE(m_form->OptionsModifiees);
    Cliquer(*m_form, "Option1_0");
    EXPECT_EQ(dossier.Lire("print.ini"), "[Impression]\r\nSelOnly=0\r\n");
    EXPECT_FALSE(m_form->SelectionSeule());
}

// ---- the sheet

TEST_F(FrmPrintTest, EachObjectStandsInItsPlaceAtAnySize)
{
    frmPrint& form = Ouvrir();
    const auto& feuille = De<QWidget>(form, "Feuille");
    int largeurAvant = 0;
    for (const QSize taille : {QSize(700, 600), QSize(1100, 900)}) {
        form.resize(taille);
        QCoreApplication::processEvents();
        const double echelle = Echelle();
        const QPointF papier = QPointF(LV1().pos()) - QPointF(4.233, 10.583) * echelle;
        const auto regarder = [&](const char* nom, QRectF mm) {
            const QRect place = De<QWidget>(form, nom).geometry();
            EXPECT_NEAR(place.x(), papier.x() + mm.x() * echelle, 2) << nom;
            EXPECT_NEAR(place.y(), papier.y() + mm.y() * echelle, 2) << nom;
            if (mm.width() > 0) {
                EXPECT_NEAR(place.width(), mm.width() * echelle, 2) << nom;
                EXPECT_NEAR(place.height(), mm.height() * echelle, 2) << nom;
            }
        };
        regarder("Icone", {4.233, 4.233, 4.233, 4.233});
        regarder("NomCat", {8.996, 4.763, 0, 0});
        regarder("Page", {76.2, 4.763, 0, 0});
        EXPECT_NEAR(papier.x() + 84 * echelle, feuille.width() - papier.x(), 3) << "the paper stands in the middle";
        EXPECT_TRUE(papier.x() < 12 || papier.y() < 12) << "and is as large as there is room";
        EXPECT_GE(papier.x(), 0);
        EXPECT_GE(papier.y(), 0);
        EXPECT_NEAR(De<QLabel>(form, "NomCat").font().pixelSize(), 6 * 25.4 / 72 * echelle, 1);
        EXPECT_GT(LV1().width(), largeurAvant);
        largeurAvant = LV1().width();
    }
}

TEST_F(FrmPrintTest, ThePictureFillsItsSquare)
{
    frmPrint& form = Ouvrir();
    EXPECT_TRUE(De<QLabel>(form, "Icone").pixmap().isNull());
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(Qt::red);
    form.MontrerImage(image);
    auto& icone = De<QLabel>(form, "Icone");
    EXPECT_EQ(icone.grab().toImage().pixelColor(icone.width() / 2, 1), QColor(Qt::red));
    EXPECT_EQ(form.Image(), image);
    form.MontrerImage({});
    EXPECT_TRUE(De<QLabel>(form, "Icone").pixmap().isNull());
}

TEST_F(FrmPrintTest, PaperIsWhiteInEveryTheme)
{
    QPalette sombre;
    sombre.setColor(QPalette::Window, Qt::black);
    sombre.setColor(QPalette::WindowText, Qt::white);
    QApplication::setPalette(sombre);
    frmPrint& form = Ouvrir();
    const QImage image = De<QWidget>(form, "Feuille").grab().toImage();
    const QRect page = De<QLabel>(form, "Page").geometry();
    EXPECT_EQ(image.pixelColor(page.x() + page.width() / 2, page.y() + page.height() / 2), QColor(Qt::white));
    EXPECT_EQ(De<QLabel>(form, "Page").palette().color(QPalette::WindowText), QColor(Qt::black));
    QApplication::setPalette(QPalette());
}

// ---- the columns

TEST_F(FrmPrintTest, ABorderIsDraggedAndTheListFollows)
{
    Ouvrir();
    Tirer(30, 40);
    EXPECT_NEAR(Largeurs()[0], 40, Pixel);
    EXPECT_EQ(Largeurs()[1], 20) << "the others keep theirs";
    EXPECT_NEAR(De<QTableWidget>(*m_form, "Largeurs").item(0, 1)->data(Qt::EditRole).toDouble(), 100, 1)
        << "in millimetres of the paper";
    EXPECT_EQ(De<QTableWidget>(*m_form, "Largeurs").currentRow(), 0);
    Tirer(Largeurs()[0] + 20, Largeurs()[0] + 12);
    EXPECT_NEAR(Largeurs()[1], 12, Pixel);
    EXPECT_EQ(De<QTableWidget>(*m_form, "Largeurs").currentRow(), 1);
    Tirer(15, 25);
    EXPECT_NEAR(Largeurs()[0], 40, Pixel) << "not at a border";
}

TEST_F(FrmPrintTest, AColumnIsDraggedToNothingAndBack)
{
    Ouvrir();
    Tirer(50, 20);
    EXPECT_EQ(Largeurs(), std::vector<double>({30, 0, 10}));
    EXPECT_EQ(Liste(), QStringList({"x Titre 75", "- Artiste 0", u"x Année 25"_s}));
    Tirer(30, 45, 2);
    EXPECT_NEAR(Largeurs()[1], 15, Pixel) << "right of the border it comes back";
    EXPECT_EQ(Largeurs()[0], 30);
    Tirer(30 + Largeurs()[1], 10);
    ASSERT_EQ(Largeurs()[1], 0);
    Tirer(30, 25, -2);
    EXPECT_NEAR(Largeurs()[0], 25, Pixel) << "left of it the column is taken that is seen";
    EXPECT_EQ(Largeurs()[1], 0);
}

TEST_F(FrmPrintTest, TheFirstColumnComesBackFromNothingToo)
{
    Ouvrir();
    Tirer(30, -5);
    ASSERT_EQ(Largeurs()[0], 0);
    Tirer(0, 8, 2);
    EXPECT_NEAR(Largeurs()[0], 8, Pixel);
}

TEST_F(FrmPrintTest, ThePointerTellsWhereABorderIs)
{
    Ouvrir();
    QTest::mouseMove(&LV1(), QPoint(qRound(30 * Echelle()), 5));
    EXPECT_EQ(LV1().cursor().shape(), Qt::SplitHCursor);
    QTest::mouseMove(&LV1(), QPoint(qRound(15 * Echelle()), 5));
    EXPECT_EQ(LV1().cursor().shape(), Qt::ArrowCursor);
}

TEST_F(FrmPrintTest, AClickOnATitleSelectsItInTheList)
{
    Ouvrir();
    QTest::mouseClick(&LV1(), Qt::LeftButton, {}, QPoint(qRound(40 * Echelle()), 5));
    EXPECT_EQ(De<QTableWidget>(*m_form, "Largeurs").currentRow(), 1);
    EXPECT_EQ(Largeurs(), std::vector<double>({30, 20, 10}));
}

TEST_F(FrmPrintTest, AClickBesideTheColumnsSelectsNone)
{
    Ouvrir();
    De<QTableWidget>(*m_form, "Largeurs").setCurrentCell(1, 1);
    QTest::mouseClick(&LV1(), Qt::LeftButton, {}, QPoint(qRound(70 * Echelle()), 5));
    EXPECT_EQ(De<QTableWidget>(*m_form, "Largeurs").currentRow(), 1);
}

TEST_F(FrmPrintTest, TheSheetHintsAtAsManyRowsAsThereAre)
{
    frmPrint& form = Ouvrir();
    const auto filets = [this] {
        const QImage image = LV1().grab().toImage();
        const int x = qRound(15 * Echelle());
        int nombre = 0;
        for (int y = 40; y < image.height(); ++y)
            nombre += image.pixelColor(x, y) != image.pixelColor(x, image.height() - 1) ? 1 : 0;
        return nombre;
    };
    form.MontrerRangees(0);
    EXPECT_EQ(filets(), 0);
    form.MontrerRangees(50);
    const int cinquante = filets();
    EXPECT_GT(cinquante, 20);
    form.MontrerRangees(30);
    EXPECT_EQ(cinquante - filets(), 20);
}

TEST_F(FrmPrintTest, WidthsAreTypedByKeysAlone)
{
    frmPrint& form = Ouvrir();
    auto& liste = De<QTableWidget>(form, "Largeurs");
    liste.setFocus();
    QTest::keyClick(&liste, Qt::Key_Down);
    QTest::keyClick(&liste, Qt::Key_F2);
    auto* champ = liste.viewport()->findChild<QDoubleSpinBox*>();
    ASSERT_TRUE(champ);
    champ->selectAll();
    QTest::keyClicks(champ, "80");
    QTest::keyClick(champ, Qt::Key_Return);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Largeurs(), std::vector<double>({30, 32, 10}));
    EXPECT_TRUE(form.isVisible()) << "the key was the field's";
    QTest::keyClick(&liste, Qt::Key_F2);
    champ = liste.viewport()->findChild<QDoubleSpinBox*>();
    ASSERT_TRUE(champ);
    champ->selectAll();
    QTest::keyClicks(champ, "-3");
    QTest::keyClick(champ, Qt::Key_Return);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Largeurs(), std::vector<double>({30, 0, 10})) << "nothing is the least";
    EXPECT_EQ(Liste()[1], "- Artiste 0");
}

TEST_F(FrmPrintTest, AColumnIsTickedOffAndOn)
{
    frmPrint& form = Ouvrir();
    auto& liste = De<QTableWidget>(form, "Largeurs");
    liste.setFocus();
    liste.setCurrentCell(1, 0);
    QTest::keyClick(&liste, Qt::Key_Space);
    EXPECT_EQ(Largeurs(), std::vector<double>({30, 0, 10}));
    QTest::keyClick(&liste, Qt::Key_Space);
    EXPECT_GT(Largeurs()[1], 0);
    EXPECT_TRUE(Liste()[1].startsWith(u"x Artiste"));
}

TEST_F(FrmPrintTest, TellsWhenTheColumnsLeaveThePageAndFitsThem)
{
    frmPrint& form = Ouvrir();
    EXPECT_EQ(De<QLabel>(form, "Label2").text(), "Total : 150 mm");
    Cliquer(form, "btAjuster");
    EXPECT_NEAR(Largeurs()[0], 74.348 / 2, 1e-6) << "in proportion";
    EXPECT_NEAR(Largeurs()[2], 74.348 / 6, 1e-6);
    EXPECT_FALSE(De<QLabel>(form, "Label2").text().contains(u"page"));
    form.MontrerColonnes({{u"Titre"_s, 60}, {u"Genre"_s, 40}});
    EXPECT_TRUE(De<QLabel>(form, "Label2").text().contains(u"plus large que la page"));
    Cliquer(form, "btAjuster");
    EXPECT_FALSE(De<QLabel>(form, "Label2").text().contains(u"page"));
}

TEST_F(FrmPrintTest, NothingIsFittedWhereAllColumnsAreLeftOut)
{
    frmPrint& form = Ouvrir();
    for (int i = 0; i < 3; ++i)
        De<QTableWidget>(form, "Largeurs").item(i, 0)->setCheckState(Qt::Unchecked);
    Cliquer(form, "btAjuster");
    EXPECT_EQ(Largeurs(), std::vector<double>({0, 0, 0}));
}

TEST_F(FrmPrintTest, ATitleOfManyLinesIsOne)
{
    frmPrint& form = Ouvrir();
    form.MontrerColonnes({{u"Prêté\nà"_s, 5}});
    EXPECT_FALSE(De<QTableWidget>(form, "Largeurs").item(0, 0)->text().contains(u'\n'));
    EXPECT_EQ(form.Disposition().colonnes[0].titre, u"Prêté\nà"_s) << "printed as it is";
}

// ---- the options

TEST_F(FrmPrintTest, TheOptionsShowAtOnceInTheHeading)
{
    frmPrint& form = Ouvrir();
    const GardeModale garde([](QWidget& options) {
        ASSERT_EQ(options.objectName(), "frmPrintOptions");
        EXPECT_EQ(De<QLineEdit>(options, "Text1").text(), "%titre% - %nb% %nomcat%");
        EXPECT_EQ(De<QLineEdit>(options, "Text2").text(), "Mes listes");
        De<QLineEdit>(options, "Text1").setText(u"%nomcat% : %TITRE%"_s);
        De<QLineEdit>(options, "Text2").setText(u"à vendre"_s);
        QTest::keyClick(&options, Qt::Key_Return);
    });
    Cliquer(form, "btOption");
    EXPECT_EQ(De<QLabel>(form, "NomCat").text(), "jazz.qrt : à vendre");
    EXPECT_EQ(form.TexteEntete, "%nomcat% : %TITRE%");
    EXPECT_EQ(form.TitreImpression, "à vendre");
    EXPECT_TRUE(form.OptionsModifiees);
}

TEST_F(FrmPrintTest, TheOptionsDecideAboutThePicture)
{
    frmPrint& form = Ouvrir();
    for (const bool montrer : {true, false}) {
        const GardeModale garde([montrer](QWidget& options) {
            De<QAbstractButton>(options, "Check2").setChecked(true);
            De<QAbstractButton>(options, "Check1").setChecked(montrer);
            options.close();
        });
        Cliquer(form, "btOption");
        EXPECT_EQ(form.Image().isNull(), !montrer);
    }
}

TEST_F(FrmPrintTest, ThePagesAreAskedForByAButton)
{
    frmPrint& form = Ouvrir();
    int fois = 0;
    QObject::connect(&form, &frmPrint::ApercuDemande, &form, [&fois] { ++fois; });
    Cliquer(form, "btApercu");
    EXPECT_EQ(fois, 1);
    EXPECT_TRUE(form.isVisible());
}
