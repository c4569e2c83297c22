#include "images/frmChangeImage.h"

#include "base/Const_Vrac.h"
#include "images/Bibliotheque.h"
#include "images/ChoisirImage.h"
#include "images/PanneauImage.h"
#include "support/Accessibilite.h"
#include "support/DossierDeTest.h"
#include "support/FermeModales.h"
#include "support/FileDeFichiers.h"
#include "support/FileDeReponses.h"
#include "support/GardeModale.h"

#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QImage>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <filesystem>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize Vieille{40, 30};
constexpr QSize Neuve{20, 50};

class FrmChangeImageTest : public testing::Test
{
protected:
    FrmChangeImageTest()
    {
        Image("cat1/photo.jpg", Vieille);
        form.Dossier = Dossier();
    }
    QString Dossier() const { return m_dossier.Fichier("cat1") + u'/'; }
    QString Image(const QString& nom, QSize taille, const QColor& couleur = Qt::red) const
    {
        m_dossier.Ecrire(nom, "");
        QImage image(taille, QImage::Format_RGB32);
        image.fill(couleur);
        EXPECT_TRUE(image.save(m_dossier.Fichier(nom), "BMP"));
        return m_dossier.Fichier(nom);
    }
    void Montrer(const QString& nomActuel = QString())
    {
        form.Remplir(nomActuel);
        form.show();
        form.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    }
    QListWidget& List1() const { return *form.findChild<QListWidget*>("List1"); }
    PanneauImage& Img() const { return *form.findChild<PanneauImage*>("Img"); }
    QPushButton& Bouton(const char* nom) const { return *form.findChild<QPushButton*>(QString::fromLatin1(nom)); }
    void Presser(const char* nom) const { QTest::mouseClick(&Bouton(nom), Qt::LeftButton); }
    QPoint Ligne(const QString& nom) const
    {
        const QList<QListWidgetItem*> lignes = List1().findItems(nom, Qt::MatchExactly);
        EXPECT_EQ(lignes.size(), 1) << nom.toStdString();
        return lignes.isEmpty() ? QPoint() : List1().visualItemRect(lignes.first()).center();
    }
    void Cliquer(const QString& nom) const
    {
        QTest::mouseClick(List1().viewport(), Qt::LeftButton, Qt::NoModifier, Ligne(nom));
    }
    QStringList Lignes() const
    {
        QStringList lignes;
        for (int i = 0; i < List1().count(); ++i)
            lignes.append(List1().item(i)->text());
        return lignes;
    }
    /// Names in the folder that are among `noms`, in the order in which the system delivers them.
    QStringList OrdreDuSysteme(const QStringList& noms) const
    {
        QStringList ordre;
        for (const auto& entree : std::filesystem::directory_iterator(Dossier().toStdString())) {
            const QString nom = QString::fromStdString(entree.path().filename().string());
            if (noms.contains(nom))
                ordre.append(nom);
        }
        return ordre;
    }
    QSize TailleDe(const QString& nom) const { return QImage(Dossier() + nom).size(); }
    QStringList Fichiers() const { return QDir(Dossier()).entryList(QDir::Files, QDir::Name); }

    /// Adds `fichier`, whose name the category has, with these answers.
    void AjouterConnue(const QString& fichier, bool remplacer, int renommer = 0)
    {
        FileDeFichiers fichiers;
        FileDeReponses reponses;
        fichiers.Preparer({fichier}, 1);
        if (!remplacer)
            reponses.Preparer(renommer);
        const GardeModale garde([&](QWidget& question) {
            EXPECT_EQ(question.objectName(), "frmRemplacerImg");
            EXPECT_EQ(question.findChild<PanneauImage*>("Img_0")->Image().size(), Vieille);
            EXPECT_EQ(question.findChild<PanneauImage*>("Img_1")->Image().size(), Neuve);
            QTest::mouseClick(question.findChild<QPushButton*>(remplacer ? "btOui" : "btNon"), Qt::LeftButton);
        });
        Presser("btAjouter");
        if (!remplacer) {
            ASSERT_EQ(reponses.Cles(), QStringList("msg27"));
            EXPECT_EQ(reponses.Affiches().first().message.texte, u"Voulez vous que l'image a ajouter soit renomée?"_s);
            EXPECT_EQ(reponses.Affiches().first().genre, 3);
        }
    }

    DossierDeTest m_dossier;
    frmChangeImage form;
};

} // namespace

// ---- the list

TEST_F(FrmChangeImageTest, ShowsTheImagesOfTheFolderAndSelectsNone)
{
    Image("cat1/autre.gif", Vieille);
    m_dossier.Ecrire("cat1/Zelvane.qrt", "x");
    Image("cat1/cachee.jpe", Vieille);
    QDir(Dossier()).mkdir("vacances.jpg");
    Montrer();
    EXPECT_EQ(form.windowTitle(), "Choix de l'image");
    EXPECT_EQ(form.findChild<QGroupBox*>()->title(), "Choisiseez une image dans la liste de droite");
    EXPECT_EQ(Lignes(), OrdreDuSysteme({"autre.gif", "photo.jpg", "vacances.jpg"}));
    List1().setFocus();
    EXPECT_TRUE(List1().selectedItems().isEmpty()) << "the line with the focus neither";
    EXPECT_TRUE(Img().Image().isNull());
    EXPECT_EQ(ControlesSansNom(form), QStringList());
}

TEST_F(FrmChangeImageTest, ButtonsHaveTheirCaptions)
{
    const QList<std::pair<const char*, const char*>> boutons{{"btOK", "Valider"},
                                                             {"btAnnuler", "Annuler"},
                                                             {"btAjouter", "Ajouter une image"},
                                                             {"Command1", "Supprimer une image"},
                                                             {"Command2", "Pas d'image"}};
    for (const auto& [nom, titre] : boutons)
        EXPECT_EQ(Bouton(nom).text().remove(u'&'), titre);
}

TEST_F(FrmChangeImageTest, TheImageInUseIsShownAndNotSelected)
{
    Montrer("photo.jpg");
    EXPECT_EQ(Img().Image().size(), Vieille);
    EXPECT_TRUE(List1().selectedItems().isEmpty());
}

TEST_F(FrmChangeImageTest, AnImageInUseThatLeadsElsewhereIsNotOpened)
{
    Image("dehors.bmp", Vieille);
    Montrer("../dehors.bmp");
    EXPECT_TRUE(Img().Image().isNull());
}

TEST_F(FrmChangeImageTest, AClickShowsTheFile)
{
    Image("cat1/b.bmp", Neuve);
    Montrer();
    Cliquer("photo.jpg");
    EXPECT_EQ(Img().Image().size(), Vieille);
    Cliquer("b.bmp");
    EXPECT_EQ(Img().Image().size(), Neuve);
    EXPECT_TRUE(form.isVisible());
}

TEST_F(FrmChangeImageTest, AFileThatIsNoPictureIsShownAsNothingAndCanBeChosen)
{
    m_dossier.Ecrire("cat1/cassee.gif", "GIF89a and nothing more");
    Montrer("photo.jpg");
    Cliquer("cassee.gif");
    EXPECT_TRUE(Img().Image().isNull());
    Presser("btOK");
    EXPECT_EQ(form.Resultat, "cassee.gif");
}

// ---- the result

TEST_F(FrmChangeImageTest, ValidatingTakesTheSelectedLine)
{
    Montrer();
    Cliquer("photo.jpg");
    Presser("btOK");
    EXPECT_EQ(form.Resultat, "photo.jpg");
    EXPECT_FALSE(form.isVisible());
}

TEST_F(FrmChangeImageTest, ValidatingWithoutASelectedLineChangesNothing)
{
    Montrer("photo.jpg");
    List1().setFocus();
    Presser("btOK");
    EXPECT_EQ(form.Resultat, "");
    EXPECT_FALSE(form.isVisible());
}

TEST_F(FrmChangeImageTest, ADoubleClickTakesTheLine)
{
    Image("cat1/b.bmp", Neuve);
    Image("cat1/c.bmp", {60, 60});
    for (const char* nom : {"photo.jpg", "b.bmp", "c.bmp"}) {
        List1().clear();
        Montrer("c.bmp");
        Cliquer(nom); // the second half alone is no double click
        QTest::mouseDClick(List1().viewport(), Qt::LeftButton, Qt::NoModifier, Ligne(nom));
        EXPECT_EQ(form.Resultat, nom);
        EXPECT_EQ(Img().Image().size(), TailleDe(nom));
        EXPECT_FALSE(form.isVisible());
    }
}

TEST_F(FrmChangeImageTest, KeysChooseToo)
{
    Montrer();
    List1().setFocus();
    QTest::keyClick(&List1(), Qt::Key_Space);
    QTest::keyClick(&List1(), Qt::Key_Return);
    EXPECT_EQ(form.Resultat, "photo.jpg");
    EXPECT_FALSE(form.isVisible());
}

TEST_F(FrmChangeImageTest, NoImageIsAResultOfItsOwn)
{
    Montrer("photo.jpg");
    Presser("Command2");
    EXPECT_EQ(form.Resultat, "#");
    EXPECT_FALSE(form.isVisible());
}

TEST_F(FrmChangeImageTest, CancellingEscapeAndClosingChangeNothing)
{
    for (const auto& geste : QList<std::function<void()>>{
             [&] { Presser("btAnnuler"); }, [&] { QTest::keyClick(&form, Qt::Key_Escape); }, [&] { form.close(); }}) {
        List1().clear();
        Montrer();
        Cliquer("photo.jpg");
        form.Resultat = u"d'avant"_s;
        geste();
        EXPECT_EQ(form.Resultat, "");
        EXPECT_FALSE(form.isVisible());
    }
}

TEST_F(FrmChangeImageTest, TheRoutineGivesTheResult)
{
    const GardeModale garde([&](QWidget& boite) {
        EXPECT_EQ(boite.objectName(), "frmChangeImage");
        EXPECT_EQ(boite.findChild<PanneauImage*>("Img")->Image().size(), Vieille);
        QTest::mouseClick(boite.findChild<QPushButton*>("Command2"), Qt::LeftButton);
    });
    EXPECT_EQ(ChoisirImage(Dossier(), "photo.jpg"), "#");
}

// ---- deleting

TEST_F(FrmChangeImageTest, DeletingAsksAndTakesTheLineAway)
{
    Image("cat1/b.bmp", Neuve);
    Montrer();
    EXPECT_FALSE(Bouton("Command1").isEnabled()) << "with nothing selected";
    Cliquer("photo.jpg");
    const GardeModale garde([](QWidget& question) {
        EXPECT_EQ(question.objectName(), "frmSupprImg");
        QTest::mouseClick(question.findChild<QPushButton*>("btOui"), Qt::LeftButton);
    });
    Presser("Command1");
    EXPECT_EQ(Lignes(), QStringList("b.bmp"));
    EXPECT_EQ(Fichiers(), QStringList("b.bmp"));
    EXPECT_TRUE(form.isVisible());
}

TEST_F(FrmChangeImageTest, AfterADeletionNothingIsSelectedAndEnterChangesNothing)
{
    Image("cat1/b.bmp", Neuve);
    Image("cat1/c.bmp", Neuve);
    const std::function<void()> gestes[] = {[&] { Presser("Command1"); },
                                            [&] { QTest::keyClick(&List1(), Qt::Key_Delete); }};
    for (const auto& geste : gestes) {
        List1().clear();
        Montrer();
        Cliquer(List1().item(0)->text());
        const GardeModale garde(
            [](QWidget& question) { QTest::mouseClick(question.findChild<QPushButton*>("btOui"), Qt::LeftButton); });
        geste();
        EXPECT_TRUE(List1().selectedItems().isEmpty());
        EXPECT_TRUE(Img().Image().isNull());
        EXPECT_FALSE(Bouton("Command1").isEnabled());
        ASSERT_EQ(form.focusWidget(), &List1());
        QTest::keyClick(form.focusWidget(), Qt::Key_Return);
        EXPECT_EQ(form.Resultat, "");
        EXPECT_FALSE(form.isVisible());
    }
    EXPECT_EQ(Fichiers().size(), 1);
}

TEST_F(FrmChangeImageTest, AnImageThatIsKeptKeepsItsLine)
{
    Montrer();
    Cliquer("photo.jpg");
    const GardeModale garde([](QWidget& question) { question.close(); });
    QTest::keyClick(&List1(), Qt::Key_Delete);
    EXPECT_EQ(Lignes(), QStringList("photo.jpg"));
    EXPECT_EQ(Fichiers(), QStringList("photo.jpg"));
}

TEST_F(FrmChangeImageTest, TheDeleteKeyActsInTheListAlone)
{
    Montrer();
    Cliquer("photo.jpg");
    Bouton("btOK").setFocus();
    const FermeModales ouvertes;
    QTest::keyClick(&Bouton("btOK"), Qt::Key_Delete);
    EXPECT_EQ(ouvertes.fenetres, QStringList());
    EXPECT_EQ(Fichiers(), QStringList("photo.jpg"));
}

TEST_F(FrmChangeImageTest, EveryDeletionAsksAnew)
{
    Image("cat1/b.bmp", Neuve);
    Montrer();
    for (const char* nom : {"photo.jpg", "b.bmp"}) {
        Cliquer(QString::fromLatin1(nom));
        const GardeModale garde(
            [](QWidget& question) { QTest::mouseClick(question.findChild<QPushButton*>("btOuiAll"), Qt::LeftButton); });
        Presser("Command1");
    }
    EXPECT_EQ(Fichiers(), QStringList());
}

TEST_F(FrmChangeImageTest, ADirectoryIsNotDeleted)
{
    QDir(Dossier()).mkdir("vacances.jpg");
    Montrer();
    Cliquer("vacances.jpg");
    Presser("Command1");
    EXPECT_TRUE(QDir(Dossier() + "vacances.jpg").exists());
    EXPECT_EQ(List1().count(), 2);
}

// ---- adding

TEST_F(FrmChangeImageTest, ANewNameIsCopiedAndChosenAtOnce)
{
    FileDeFichiers fichiers;
    fichiers.Preparer({Image("ailleurs/neuve.jpg", Neuve)}, 1);
    EcrireOption(u"ImgInitDir"_s, u"/depart/"_s);
    Montrer();
    Presser("btAjouter");
    EXPECT_EQ(form.Resultat, "neuve.jpg");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(TailleDe("neuve.jpg"), Neuve);
    EXPECT_TRUE(QFile::exists(m_dossier.Fichier("ailleurs/neuve.jpg")));
    ASSERT_EQ(fichiers.Demandes().size(), 1);
    const DemandeFichier& demande = fichiers.Demandes().first();
    EXPECT_EQ(demande.depart, "/depart/");
    ASSERT_EQ(demande.types.size(), 1);
    EXPECT_EQ(demande.types.first().libelle, "Images");
    EXPECT_EQ(demande.types.first().motifs, "*.bmp;*.jpg;*.gif;*.jpeg;*.jpe");
    EXPECT_EQ(LireOption(u"ImgInitDir"_s, QString()), m_dossier.Fichier("ailleurs") + u'/');
}

TEST_F(FrmChangeImageTest, TheFirstSearchStartsInTheProgramsFolder)
{
    FileDeFichiers fichiers;
    fichiers.PreparerAnnulation();
    Montrer();
    Presser("btAjouter");
    EXPECT_EQ(fichiers.Demandes().first().depart, DossierProgramme());
}

TEST_F(FrmChangeImageTest, AJpeFileIsAcceptedAndNotListedAfterwards)
{
    FileDeFichiers fichiers;
    fichiers.Preparer({Image("ailleurs/neuve.jpe", Neuve)}, 1);
    Montrer();
    Presser("btAjouter");
    EXPECT_EQ(form.Resultat, "neuve.jpe");
    EXPECT_TRUE(QFile::exists(Dossier() + "neuve.jpe"));
    EXPECT_EQ(ListerImages(Dossier()), QStringList("photo.jpg"));
}

TEST_F(FrmChangeImageTest, ANameThatTheCatalogueCannotHoldIsMended)
{
    FileDeFichiers fichiers;
    fichiers.Preparer({Image("ailleurs/a|b.jpg", Neuve)}, 1);
    Montrer();
    Presser("btAjouter");
    EXPECT_EQ(form.Resultat, "a_b.jpg");
    EXPECT_EQ(TailleDe("a_b.jpg"), Neuve);
}

TEST_F(FrmChangeImageTest, ACancelledSearchLeavesTheDialogOpen)
{
    FileDeFichiers fichiers;
    fichiers.PreparerAnnulation();
    Montrer();
    Cliquer("photo.jpg");
    Presser("btAjouter");
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.Resultat, "");
    EXPECT_EQ(Lignes(), QStringList("photo.jpg"));
    EXPECT_EQ(LireOption(u"ImgInitDir"_s, u"-"_s), "-");
}

TEST_F(FrmChangeImageTest, AFileThatCannotBeCopiedLeavesTheDialogOpenWithoutAWord)
{
    const FileDeReponses reponses;
    FileDeFichiers fichiers;
    fichiers.Preparer({m_dossier.Fichier("absente.jpg")}, 1);
    Montrer();
    Presser("btAjouter");
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.Resultat, "");
    EXPECT_EQ(Fichiers(), QStringList("photo.jpg"));
    EXPECT_TRUE(reponses.Affiches().isEmpty());
}

TEST_F(FrmChangeImageTest, AKnownNameIsReplacedAfterAYes)
{
    Montrer();
    AjouterConnue(Image("ailleurs/photo.jpg", Neuve), true);
    EXPECT_EQ(form.Resultat, "photo.jpg");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(TailleDe("photo.jpg"), Neuve) << "for every entry that points at the name";
    EXPECT_EQ(Fichiers(), QStringList("photo.jpg"));
}

TEST_F(FrmChangeImageTest, AKnownNameThatIsNotReplacedGetsTheFirstFreeNumber)
{
    Montrer();
    const QString neuve = Image("ailleurs/photo.jpg", Neuve);
    AjouterConnue(neuve, false, RepOui);
    EXPECT_EQ(form.Resultat, "0photo.jpg");
    EXPECT_FALSE(form.isVisible());
    form.show();
    AjouterConnue(neuve, false, RepOui);
    EXPECT_EQ(form.Resultat, "1photo.jpg");
    EXPECT_EQ(TailleDe("photo.jpg"), Vieille);
    EXPECT_EQ(TailleDe("0photo.jpg"), Neuve);
    EXPECT_EQ(Fichiers(), QStringList({"0photo.jpg", "1photo.jpg", "photo.jpg"}));
}

TEST_F(FrmChangeImageTest, NeitherReplacedNorRenamedClosesWithoutAChange)
{
    const QString neuve = Image("ailleurs/photo.jpg", Neuve);
    for (const int reponse : {RepNon, RepAnnuler}) {
        List1().clear();
        Montrer("photo.jpg");
        AjouterConnue(neuve, false, reponse);
        EXPECT_EQ(form.Resultat, "");
        EXPECT_FALSE(form.isVisible());
        EXPECT_EQ(Fichiers(), QStringList("photo.jpg"));
        EXPECT_EQ(TailleDe("photo.jpg"), Vieille);
    }
}

// ---- small pictures

namespace {

/// What this process has read from files so far.
qint64 OctetsLus()
{
    QFile io("/proc/self/io");
    EXPECT_TRUE(io.open(QIODevice::ReadOnly));
    const QByteArray texte = io.readAll(); // "rchar: 123\nwchar: ..."
    return texte.mid(7, texte.indexOf('\n') - 7).toLongLong();
}

/// The colour in the middle of the small picture of a line.
QColor Vignette(QListWidget& liste, const QString& nom)
{
    const QRect ligne = liste.visualItemRect(liste.findItems(nom, Qt::MatchExactly).first());
    return liste.viewport()->grab(ligne).toImage().pixelColor(28, ligne.height() / 2);
}

} // namespace

TEST_F(FrmChangeImageTest, NamesHaveTheirSmallPicturesBesideThem)
{
    Image("cat1/bleue.bmp", {200, 100}, Qt::blue);
    Montrer();
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return Vignette(List1(), "bleue.bmp") == QColor(Qt::blue) && Vignette(List1(), "photo.jpg") == QColor(Qt::red);
    }));
}

TEST_F(FrmChangeImageTest, OfThousandsOfImagesOnlyThoseInSightAreRead)
{
    const QString modele = Image("cat1/0.bmp", {600, 600}, Qt::blue);
    for (int i = 1; i < 3000; ++i)
        QFile::link(modele, Dossier() + u"%1.bmp"_s.arg(i));
    const qint64 avant = OctetsLus();
    Montrer();
    List1().grab();
    List1().scrollToBottom();
    const QString derniere = List1().item(List1().count() - 1)->text();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Vignette(List1(), derniere) == QColor(Qt::blue); }));
    const qint64 taille = QFileInfo(modele).size();
    EXPECT_GT(OctetsLus() - avant, taille);
    EXPECT_LT(OctetsLus() - avant, 300 * taille);
}
