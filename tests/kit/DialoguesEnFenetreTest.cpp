#include "kit/DialoguesEnFenetre.h"

#include "platform/NomsSysteme.h"
#include "support/DossierDeTest.h"
#include "support/GardeModale.h"
#include "support/Impression.h"

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QListView>
#include <QTest>
#include <QTreeView>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class DialoguesEnFenetreTest : public testing::Test
{
protected:
    DialoguesEnFenetreTest()
    {
        demande.titre = u"Ouvrir une Categorie"_s;
        demande.types = TypesDuFiltre(u"(*.*)|*.*|Zelvane 2/1.5|*.qrt|Zelvane 1.4|*.qrt"_s);
        demande.type = 2;
        demande.depart = dossier.Chemin();
    }

    static QLineEdit& Nom(QWidget& dialogue) { return *dialogue.findChild<QLineEdit*>(u"fileNameEdit"_s); }
    static QComboBox& Types(QWidget& dialogue) { return *dialogue.findChild<QComboBox*>(u"fileTypeCombo"_s); }
    static void Valider(QWidget& dialogue, const QString& nom)
    {
        Nom(dialogue).setFocus();
        Nom(dialogue).selectAll();
        QTest::keyClicks(&Nom(dialogue), nom);
        QTest::keyClick(&Nom(dialogue), Qt::Key_Return);
    }

    DossierDeTest dossier;
    DialoguesEnFenetre dialogues;
    DemandeFichier demande;
};

} // namespace

TEST_F(DialoguesEnFenetreTest, TheDialogShowsTheTitleTheLabelsAndTheFolder)
{
    QStringList libelles;
    GardeModale garde([&](QWidget& fenetre) {
        const auto& dialogue = dynamic_cast<QFileDialog&>(fenetre);
        EXPECT_EQ(dialogue.windowTitle(), "Ouvrir une Categorie");
        EXPECT_EQ(dialogue.directory(), QDir(dossier.Chemin()));
        for (int i = 0; i < Types(fenetre).count(); ++i)
            libelles.append(Types(fenetre).itemText(i).trimmed());
        EXPECT_EQ(Types(fenetre).currentIndex(), 1);
        QTest::keyClick(&fenetre, Qt::Key_Escape);
    });
    EXPECT_FALSE(DialogueOuvrir(demande));
    EXPECT_EQ(libelles, QStringList({u"(*.*)"_s, u"Zelvane 2/1.5"_s, u"Zelvane 1.4"_s}));
}

TEST_F(DialoguesEnFenetreTest, PlacesAndColumnsAreSeenWhole)
{
    GardeModale garde([&](QWidget& fenetre) {
        const auto& lieux = *fenetre.findChild<QListView*>(u"sidebar"_s);
        const auto& fichiers = *fenetre.findChild<QTreeView*>(u"treeView"_s);
        EXPECT_GE(lieux.viewport()->width(), lieux.sizeHintForColumn(0));
        EXPECT_EQ(fichiers.header()->length(), fichiers.viewport()->width());
        EXPECT_GE(fichiers.columnWidth(3), 200);
        QTest::keyClick(&fenetre, Qt::Key_Escape);
    });
    EXPECT_FALSE(DialogueOuvrir(demande));
}

TEST_F(DialoguesEnFenetreTest, TheChosenFileComesBackWithItsType)
{
    const QString chemin = dossier.Ecrire(u"disques.qrt"_s, "x");
    GardeModale garde([&](QWidget& fenetre) {
        Types(fenetre).setFocus();
        QTest::keyClick(&Types(fenetre), Qt::Key_Down);
        Valider(fenetre, u"disques.qrt"_s);
    });
    const auto reponse = DialogueOuvrir(demande);
    ASSERT_TRUE(reponse);
    EXPECT_EQ(reponse->fichiers, QStringList{chemin});
    EXPECT_EQ(reponse->type, 3) << "the two types of one pattern are told apart";
}

TEST_F(DialoguesEnFenetreTest, SeveralFilesCanBeChosenWhereTheyMay)
{
    const QString a = dossier.Ecrire(u"a.qrt"_s, "x"), b = dossier.Ecrire(u"b.qrt"_s, "x");
    demande.plusieurs = true;
    GardeModale garde([&](QWidget& fenetre) { Valider(fenetre, u"\"a.qrt\" \"b.qrt\""_s); });
    const auto reponse = DialogueOuvrir(demande);
    ASSERT_TRUE(reponse);
    EXPECT_EQ(reponse->fichiers, QStringList({a, b}));
}

TEST_F(DialoguesEnFenetreTest, AllFilesIncludesNamesWithoutAPoint)
{
    demande.type = 1;
    dossier.Ecrire(u"sanspoint"_s, "x");
    GardeModale garde([&](QWidget& fenetre) {
        EXPECT_EQ(dynamic_cast<QFileDialog&>(fenetre).nameFilters().first(), "(*.*) (*)");
        Valider(fenetre, u"sanspoint"_s);
    });
    const auto reponse = DialogueOuvrir(demande);
    ASSERT_TRUE(reponse);
    EXPECT_EQ(reponse->type, 1);
}

TEST_F(DialoguesEnFenetreTest, SavingReturnsWhatWasTypedAndAsksNothing)
{
    dossier.Ecrire(u"disques"_s, "x");
    dossier.Ecrire(u"disques.qrt"_s, "x");
    for (const QString& nom : {u"disques"_s, u"disques.qrt"_s, u"autre.txt"_s}) {
        GardeModale garde([&](QWidget& fenetre) { Valider(fenetre, nom); });
        const auto reponse = DialogueEnregistrer(demande);
        ASSERT_TRUE(reponse) << nom.toStdString();
        EXPECT_EQ(reponse->fichiers, QStringList{dossier.Fichier(nom)});
    }
}

TEST_F(DialoguesEnFenetreTest, AFileWhoseNameTheDialogCannotSpellComesBackByItsBytes)
{
    const QString brut = dossier.Ecrire(CheminDesOctets("\xE9t\xE9.qrt"), "x");
    GardeModale garde([&](QWidget& fenetre) {
        Nom(fenetre).setText(u"\uFFFDt\uFFFD.qrt"_s);
        QTest::keyClick(&Nom(fenetre), Qt::Key_Return);
    });
    const auto reponse = DialogueEnregistrer(demande);
    ASSERT_TRUE(reponse);
    EXPECT_EQ(reponse->fichiers, QStringList{brut});
}

TEST_F(DialoguesEnFenetreTest, SavingProposesTheFile)
{
    demande.depart = dossier.Fichier(u"mes disques.qrt"_s);
    GardeModale garde([&](QWidget& fenetre) {
        EXPECT_EQ(Nom(fenetre).text(), "mes disques.qrt");
        EXPECT_EQ(dynamic_cast<QFileDialog&>(fenetre).directory(), QDir(dossier.Chemin()));
        QTest::keyClick(&Nom(fenetre), Qt::Key_Return);
    });
    const auto reponse = DialogueEnregistrer(demande);
    ASSERT_TRUE(reponse);
    EXPECT_EQ(reponse->fichiers, QStringList{demande.depart});
}

TEST_F(DialoguesEnFenetreTest, AFolderThatIsGoneStartsElsewhereWithTheSameProposal)
{
    demande.depart = dossier.Fichier(u"parti/disques.qrt"_s);
    GardeModale garde([&](QWidget& fenetre) {
        EXPECT_EQ(Nom(fenetre).text(), "disques.qrt");
        EXPECT_TRUE(dynamic_cast<QFileDialog&>(fenetre).directory().exists());
        QTest::keyClick(&fenetre, Qt::Key_Escape);
    });
    EXPECT_FALSE(DialogueEnregistrer(demande));
}

TEST_F(DialoguesEnFenetreTest, AFolderIsChosenAmongFoldersAlone)
{
    ASSERT_TRUE(QDir(dossier.Chemin()).mkdir(u"un dossier"_s));
    dossier.Ecrire(u"disques.qrt"_s, "x");
    GardeModale garde([&](QWidget& fenetre) {
        const auto& dialogue = dynamic_cast<QFileDialog&>(fenetre);
        EXPECT_EQ(dialogue.windowTitle(), "Choisissez");
        EXPECT_EQ(dialogue.directory(), QDir(dossier.Chemin()));
        EXPECT_TRUE(dialogue.testOption(QFileDialog::ShowDirsOnly));
        Valider(fenetre, u"un dossier"_s);
    });
    EXPECT_EQ(ChoisirDossier(dossier.Chemin(), u"Choisissez"_s), dossier.Fichier(u"un dossier"_s));
}

TEST_F(DialoguesEnFenetreTest, AFileIsNoFolderAndACancelledChoiceIsEmpty)
{
    dossier.Ecrire(u"disques.qrt"_s, "x");
    GardeModale garde([&](QWidget& fenetre) {
        auto& dialogue = dynamic_cast<QFileDialog&>(fenetre);
        EXPECT_EQ(dialogue.fileMode(), QFileDialog::Directory);
        QTest::keyClick(&fenetre, Qt::Key_Escape);
    });
    EXPECT_EQ(ChoisirDossier(dossier.Chemin(), u"Choisissez"_s), QString());
}

TEST_F(DialoguesEnFenetreTest, ThePresenterBeforeComesBack)
{
    struct : PresentateurFichiers
    {
        std::optional<ReponseFichier> Ouvrir(const DemandeFichier&) override { return ReponseFichier{{u"x"_s}, 7}; }
        std::optional<ReponseFichier> Enregistrer(const DemandeFichier&) override { return std::nullopt; }
        QString Dossier(const QString&, const QString&) override { return {}; }
    } avant;
    PresentateurFichiers* dehors = InstallerPresentateur(&avant);
    {
        const DialoguesEnFenetre autres;
    }
    EXPECT_EQ(DialogueOuvrir(demande)->type, 7);
    InstallerPresentateur(dehors);
}
