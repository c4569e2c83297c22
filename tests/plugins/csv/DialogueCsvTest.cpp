// The windows of the import, by clicks and keys.
#include "frmBilanCsv.h"
#include "frmImporterCsv.h"

#include "extensions/plugins/FaceDocument.h"
#include "support/TableDeTest.h"

#include <QApplication>
#include <QBuffer>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QtTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

extern "C" {
const ZelvaneRegistre* ZelvaneRegistreDuProgramme = nullptr;
}

namespace {

class FrmImporterCsvTest : public testing::Test
{
protected:
    void Ouvrir(const QByteArray& octets, const QString& extension = u"csv"_s)
    {
        m_octets = octets;
        m_texte.setBuffer(&m_octets);
        m_texte.open(QIODevice::ReadOnly);
        form = std::make_unique<frmImporterCsv>(m_texte, dossier.Fichier(u"a."_s + extension));
        form->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(form.get()));
    }
    template<class W> W& Trouver(const char* nom) const { return *form->findChild<W*>(QLatin1StringView(nom)); }
    QPushButton& Bouton(QDialogButtonBox::StandardButton genre) const
    {
        return *form->findChild<QDialogButtonBox*>()->button(genre);
    }
    /// Goes down a list by its key.
    void Descendre(const char* nom, int fois) const
    {
        Trouver<QComboBox>(nom).setFocus();
        for (int i = 0; i < fois; ++i)
            QTest::keyClick(&Trouver<QComboBox>(nom), Qt::Key_Down);
    }
    QAbstractItemModel& Apercu() const { return *Trouver<QTableView>("apercu").model(); }
    QStringList Rangee(int ligne) const
    {
        QStringList rangee;
        for (int i = 0; i < Apercu().columnCount(); ++i)
            rangee.append(Apercu().index(ligne, i).data().toString());
        return rangee;
    }
    QStringList Titres() const
    {
        QStringList titres;
        for (int i = 0; i < Apercu().columnCount(); ++i)
            titres.append(Apercu().headerData(i, Qt::Horizontal).toString());
        return titres;
    }
    /// Clicks into a cell of the list of columns.
    void Cliquer(int ligne, int colonne) const
    {
        auto& liste = Trouver<QTableView>("colonnes");
        QTest::mouseClick(liste.viewport(), Qt::LeftButton, {},
                          liste.visualRect(liste.model()->index(ligne, colonne)).center());
    }
    /// Chooses what becomes of a column, by a click and keys.
    void Choisir(int ligne, UsageCsv usage) const
    {
        Cliquer(ligne, ModeleColonnesCsv::Usage);
        auto* editeur = Trouver<QTableView>("colonnes").viewport()->findChild<QComboBox*>();
        ASSERT_TRUE(editeur);
        QTest::keyClick(editeur, Qt::Key_Home);
        for (int i = 0; i < static_cast<int>(usage); ++i)
            QTest::keyClick(editeur, Qt::Key_Down);
        QTest::keyClick(editeur, Qt::Key_Return);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    DossierDeTest dossier;
    std::unique_ptr<frmImporterCsv> form;

private:
    QByteArray m_octets;
    QBuffer m_texte;
};

} // namespace

TEST_F(FrmImporterCsvTest, ShowsWhatItGuessed)
{
    Ouvrir("Titre;Ann\xE9\x65\nAja;1977\nBlue;1971\n");
    EXPECT_EQ(form->windowTitle(), "Importer un tableau");
    EXPECT_EQ(Trouver<QComboBox>("codage").currentText(), "Windows-1252");
    EXPECT_EQ(Trouver<QComboBox>("separateur").currentText(), "Point-virgule  ;");
    EXPECT_EQ(Trouver<QComboBox>("guillemet").currentText(), "Doubles  \"");
    EXPECT_TRUE(Trouver<QCheckBox>("entete").isChecked());
    EXPECT_FALSE(Trouver<QLineEdit>("autre").isEnabled());
    EXPECT_EQ(Titres(), QStringList({u"Titre"_s, u"Année"_s}));
    ASSERT_EQ(Apercu().rowCount(), 2);
    EXPECT_EQ(Rangee(1), QStringList({"Blue", "1971"}));
    EXPECT_EQ(Apercu().headerData(1, Qt::Vertical).toString(), "3") << "its line";
    const PlanCsv plan = form->Plan();
    ASSERT_EQ(plan.colonnes.size(), 2);
    EXPECT_EQ(plan.colonnes[1].titre, u"Année"_s);
    EXPECT_EQ(plan.colonnes[1].usage, UsageCsv::Prendre);
    EXPECT_EQ(plan.format, (FormatCsv{CodageCsv::Windows1252, u';', u'"', true}));
}

TEST_F(FrmImporterCsvTest, AnotherEncodingIsReadAnew)
{
    Ouvrir("Titre,Lieu\n\xC3\x89t\xC3\xA9,ici\n");
    EXPECT_EQ(Rangee(0), QStringList({u"Été"_s, u"ici"_s}));
    Descendre("codage", 3);
    EXPECT_EQ(Trouver<QComboBox>("codage").currentText(), "Windows-1252");
    EXPECT_EQ(Rangee(0), QStringList({u"Ã‰tÃ©"_s, u"ici"_s}));
    EXPECT_EQ(form->Plan().format.codage, CodageCsv::Windows1252);
}

TEST_F(FrmImporterCsvTest, AnotherEncodingIsGuessedInUnlessTheUserHasChosen)
{
    QByteArray utf16;
    for (const char c : QByteArray("a;b\n1;2\n"))
        utf16.append(c).append('\0');
    Ouvrir(utf16);
    Descendre("codage", 1); // no text in this byte order
    ASSERT_EQ(form->Plan().format.codage, CodageCsv::Utf16Be);
    EXPECT_EQ(form->Plan().format.separateur, u',');
    Trouver<QComboBox>("codage").setFocus();
    QTest::keyClick(&Trouver<QComboBox>("codage"), Qt::Key_Up);
    EXPECT_EQ(form->Plan().format.separateur, u';') << "guessed";
    Descendre("separateur", 1);
    ASSERT_EQ(form->Plan().format.separateur, u'\t');
    Descendre("codage", 1);
    EXPECT_EQ(form->Plan().format.separateur, u'\t') << "chosen";
}

TEST_F(FrmImporterCsvTest, AnotherSeparatorPartsAnew)
{
    Ouvrir("a,b\n1,2;3\n");
    Descendre("separateur", 1);
    EXPECT_EQ(Titres(), QStringList({"a,b", "Colonne 2"}));
    EXPECT_EQ(Rangee(0), QStringList({"1,2", "3"}));
    EXPECT_EQ(form->Plan().format.separateur, u';');
    EXPECT_EQ(form->Plan().colonnes.size(), 2);
    Descendre("separateur", 2);
    EXPECT_EQ(form->Plan().format.separateur, u'|');
}

TEST_F(FrmImporterCsvTest, ASeparatorOfOnesOwnIsTyped)
{
    Ouvrir("a#b\n1#2\n");
    Descendre("separateur", 4);
    EXPECT_TRUE(Trouver<QLineEdit>("autre").isEnabled());
    EXPECT_FALSE(Bouton(QDialogButtonBox::Ok).isEnabled());
    EXPECT_EQ(Trouver<QLabel>("note").text(), u"Tapez le caractère qui sépare les colonnes."_s);
    QTest::keyClicks(&Trouver<QLineEdit>("autre"), "#");
    EXPECT_EQ(Titres(), QStringList({"a", "b"}));
    EXPECT_TRUE(Bouton(QDialogButtonBox::Ok).isEnabled());
    EXPECT_EQ(form->Plan().format.separateur, u'#');
    QTest::keyClick(&Trouver<QLineEdit>("autre"), Qt::Key_Backspace);
    QTest::keyClicks(&Trouver<QLineEdit>("autre"), "\"");
    EXPECT_FALSE(Bouton(QDialogButtonBox::Ok).isEnabled()) << "that is the quote";
    EXPECT_EQ(Trouver<QLabel>("note").text(), u"Le séparateur et le guillemet sont le même caractère."_s);
}

TEST_F(FrmImporterCsvTest, OtherQuotesAreReadAnew)
{
    Ouvrir("a,b\n\"1\",'2'\n");
    Descendre("guillemet", 1);
    EXPECT_EQ(Rangee(0), QStringList({"\"1\"", "2"}));
    Descendre("guillemet", 1);
    EXPECT_EQ(Rangee(0), QStringList({"\"1\"", "'2'"}));
    EXPECT_TRUE(form->Plan().format.guillemet.isNull());
}

TEST_F(FrmImporterCsvTest, TitlesMayBeARowAsWell)
{
    Ouvrir("Titre,Lieu\nAja,ici\n");
    QTest::keyClick(&Trouver<QCheckBox>("entete"), Qt::Key_Space);
    EXPECT_EQ(Titres(), QStringList({"Colonne 1", "Colonne 2"}));
    ASSERT_EQ(Apercu().rowCount(), 2);
    EXPECT_EQ(Rangee(0), QStringList({"Titre", "Lieu"}));
    EXPECT_FALSE(form->Plan().format.entete);
}

TEST_F(FrmImporterCsvTest, ATitleIsTypedInItsPlace)
{
    Ouvrir("Titre,Lieu\nAja,ici\n");
    Cliquer(0, ModeleColonnesCsv::Titre);
    auto& liste = Trouver<QTableView>("colonnes");
    QTest::keyClick(&liste, Qt::Key_F2);
    auto* editeur = liste.viewport()->findChild<QLineEdit*>();
    ASSERT_TRUE(editeur);
    editeur->selectAll();
    QTest::keyClicks(editeur, "Al|bum");
    QTest::keyClick(editeur, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(form->Plan().colonnes[0].titre, u"Al¦bum"_s);
    EXPECT_EQ(Titres(), QStringList({u"Al¦bum"_s, u"Lieu"_s}));
    EXPECT_TRUE(form->isVisible()) << "the key ended the title alone";
}

TEST_F(FrmImporterCsvTest, TitlesStayDistinctAndAreNeverEmpty)
{
    Ouvrir("Titre,Lieu\nAja,ici\n");
    auto* modele = Trouver<QTableView>("colonnes").model();
    EXPECT_FALSE(modele->setData(modele->index(0, 0), u"Lieu"_s));
    EXPECT_FALSE(modele->setData(modele->index(0, 0), u"  "_s));
    EXPECT_EQ(form->Plan().colonnes[0].titre, "Titre");
}

TEST_F(FrmImporterCsvTest, AColumnIsLeftOut)
{
    Ouvrir("Titre,Lieu\nAja,ici\n");
    Choisir(1, UsageCsv::Laisser);
    EXPECT_EQ(form->Plan().colonnes[1].usage, UsageCsv::Laisser);
    EXPECT_EQ(Apercu().index(0, 1).data(Qt::ForegroundRole).value<QBrush>(),
              QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text));
    EXPECT_FALSE(Apercu().index(0, 0).data(Qt::ForegroundRole).isValid());
    EXPECT_TRUE(Bouton(QDialogButtonBox::Ok).isEnabled());
    Choisir(0, UsageCsv::Laisser);
    EXPECT_FALSE(Bouton(QDialogButtonBox::Ok).isEnabled());
    EXPECT_EQ(Trouver<QLabel>("note").text(), "Aucune colonne n'est prise.");
}

TEST_F(FrmImporterCsvTest, OneColumnAtMostHoldsImages)
{
    dossier.Ecrire(u"a.png"_s, "x");
    Ouvrir("Titre,Image,Autre\nAja,a.png,b\nBlue,b.jpg,c\n");
    EXPECT_EQ(form->Plan().colonnes[1].usage, UsageCsv::Image) << "all of it are paths of images, and one is there";
    auto* modele = Trouver<QTableView>("colonnes").model();
    EXPECT_EQ(modele->index(1, 1).data().toString(), "Chemin de l'image");
    EXPECT_EQ(modele->index(0, 1).data().toString(), "Prendre");
    Choisir(2, UsageCsv::Image);
    EXPECT_EQ(form->Plan().colonnes[2].usage, UsageCsv::Image);
    EXPECT_EQ(form->Plan().colonnes[1].usage, UsageCsv::Prendre);
}

TEST_F(FrmImporterCsvTest, RowsWithDefectsAreMarked)
{
    Ouvrir("a,b\n1,2\n3\n4,5,6\n7,8\n");
    EXPECT_EQ(Apercu().headerData(0, Qt::Vertical).toString(), "2");
    EXPECT_EQ(Apercu().headerData(1, Qt::Vertical).toString(), "! 3");
    EXPECT_EQ(Apercu().index(1, 0).data(Qt::ToolTipRole).toString(), "<qt>trop peu de valeurs</qt>");
    EXPECT_EQ(Apercu().index(2, 0).data(Qt::ToolTipRole).toString(), "<qt>trop de valeurs</qt>");
    EXPECT_FALSE(Apercu().index(0, 0).data(Qt::ToolTipRole).isValid());
}

TEST_F(FrmImporterCsvTest, LongValuesAreShownByTheirBeginning)
{
    Ouvrir("a,b\n" + QByteArray(5000, 'x') + ",\"1\n2|\"\n");
    EXPECT_EQ(Apercu().index(0, 0).data().toString().size(), 501);
    EXPECT_EQ(Apercu().index(0, 1).data().toString(), u"1 2¦"_s);
}

TEST_F(FrmImporterCsvTest, AnEmptyFileCanOnlyBeGivenUp)
{
    Ouvrir("");
    EXPECT_FALSE(Bouton(QDialogButtonBox::Ok).isEnabled());
    EXPECT_EQ(Trouver<QLabel>("note").text(), "Le fichier est vide.");
    QTest::mouseClick(&Bouton(QDialogButtonBox::Cancel), Qt::LeftButton);
    EXPECT_EQ(form->result(), QDialog::Rejected);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(FrmImporterCsvTest, ReturnIsOkAndEscapeAnnuler)
{
    Ouvrir("a,b\n1,2\n");
    EXPECT_EQ(Bouton(QDialogButtonBox::Ok).text(), "Ok");
    EXPECT_EQ(Bouton(QDialogButtonBox::Cancel).text(), "Annuler");
    QTest::keyClick(form.get(), Qt::Key_Return);
    EXPECT_EQ(form->result(), QDialog::Accepted);
    form->show();
    QTest::keyClick(form.get(), Qt::Key_Escape);
    EXPECT_EQ(form->result(), QDialog::Rejected);
}

TEST_F(FrmImporterCsvTest, ListsAreCalledWhatStandsBesideThem)
{
    Ouvrir("a,b\n1,2\n");
    EXPECT_EQ(Trouver<QComboBox>("codage").accessibleName(), "Codage");
    EXPECT_EQ(Trouver<QTableView>("apercu").accessibleName(), u"Aperçu");
    EXPECT_EQ(Trouver<QLineEdit>("autre").accessibleName(), u"Autre séparateur");
}

TEST_F(FrmImporterCsvTest, TheKeyOfTabsGoesThroughAllControls)
{
    Ouvrir("a,b\n1,2\n");
    Trouver<QComboBox>("codage").setFocus();
    QStringList noms;
    for (int i = 0; i < 7; ++i) {
        noms.append(QApplication::focusWidget()->objectName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(noms.first(5), QStringList({"codage", "separateur", "entete", "guillemet", "colonnes"}));
    EXPECT_EQ(noms[5], "apercu");
    EXPECT_EQ(QApplication::focusWidget(), &Bouton(QDialogButtonBox::Cancel));
}

// ---- what is told afterwards

namespace {

class FrmBilanCsvTest : public testing::Test
{
protected:
    FrmBilanCsvTest()
    {
        MettreColonnes(d.table, {"Titre", "Lieu"});
        AjouterEntrees(d.table, {{"Aja", "ici"}, {"Blue", u"là"_s}});
    }
    void Ouvrir()
    {
        form = std::make_unique<frmBilanCsv>(bilan, table);
        form->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(form.get()));
    }
    QStringList Resume() const { return form->findChild<QLabel*>(u"resume"_s)->text().split(u'\n'); }

    DocumentDeTest d;
    FaceDocument face{d.doc};
    const zelvane::Table table{&face};
    BilanCsv bilan;
    std::unique_ptr<frmBilanCsv> form;
};

} // namespace

TEST_F(FrmBilanCsvTest, TellsAllThatIsNotAsItWas)
{
    bilan.lignes = 9;
    bilan.vides = 1;
    bilan.images = 2;
    bilan.illisibles = 3;
    bilan.remplaces = {4, 5, 6};
    bilan.interrompu = true;
    bilan.signalees = {{2, 1, TropPeuDeChamps, {}}, {3, 2, SansDefaut, u"x.png"_s}};
    Ouvrir();
    EXPECT_EQ(Resume(), QStringList({u"Lignes lues : 9"_s, u"Le fichier n'a pas pu être lu jusqu'au bout."_s,
                                     u"Lignes vides, passées : 1"_s, u"Lignes défectueuses : 1"_s,
                                     u"Valeurs où « | » est devenu « ¦ » : 4"_s,
                                     u"Valeurs où un saut de ligne est devenu un espace : 5"_s,
                                     u"Valeurs où un caractère nul est devenu un espace : 6"_s,
                                     u"Caractères illisibles dans ce codage : 3"_s, u"Entrées avec leur image : 2"_s,
                                     u"Entrées sans leur image : 1"_s}));
}

TEST_F(FrmBilanCsvTest, TellsNothingThatIsNot)
{
    bilan.lignes = 9;
    bilan.remplaces.barres = 1;
    Ouvrir();
    EXPECT_EQ(Resume().size(), 2);
    EXPECT_FALSE(form->findChild<QTableView*>());
    EXPECT_FALSE(form->findChild<QRadioButton*>());
    EXPECT_FALSE(form->findChild<QPushButton*>(u"copier"_s));
    EXPECT_FALSE(form->SansDefectueuses());
}

TEST_F(FrmBilanCsvTest, ListsRowsWithTheirReason)
{
    bilan.signalees = {{2, 1, TropPeuDeChamps, {}}, {7, 2, SansDefaut, u"x.png"_s}};
    Ouvrir();
    const auto* modele = form->findChild<QTableView*>(u"signalees"_s)->model();
    ASSERT_EQ(modele->rowCount(), 2);
    const auto cellule = [&](int ligne, int colonne) { return modele->index(ligne, colonne).data().toString(); };
    EXPECT_EQ(cellule(0, 0), "2");
    EXPECT_EQ(cellule(0, 1), "trop peu de valeurs");
    EXPECT_EQ(modele->index(1, 1).data(Qt::ToolTipRole).toString(), "<qt>image introuvable : x.png</qt>");
    EXPECT_EQ(cellule(0, 2), "Aja | ici");
    EXPECT_EQ(cellule(1, 1), "image introuvable : x.png");
    EXPECT_EQ(modele->headerData(1, Qt::Horizontal).toString(), "Raison");
    QTest::mouseClick(form->findChild<QPushButton*>(u"copier"_s), Qt::LeftButton);
    EXPECT_EQ(QApplication::clipboard()->text(),
              u"2\ttrop peu de valeurs\tAja | ici\n7\timage introuvable : x.png\tBlue | là\n");
    EXPECT_TRUE(form->isVisible());
}

TEST_F(FrmBilanCsvTest, TheUserDecidesWhatBecomesOfRowsWithDefects)
{
    bilan.signalees = {{2, 1, TropPeuDeChamps, {}}};
    Ouvrir();
    EXPECT_FALSE(form->SansDefectueuses()) << "they are taken";
    QTest::keyClick(form.get(), Qt::Key_L, Qt::AltModifier);
    // A button is seen to go down first.
    EXPECT_TRUE(QTest::qWaitFor([&] { return form->SansDefectueuses(); }));
    QTest::keyClick(form.get(), Qt::Key_P, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !form->SansDefectueuses(); }));
    QTest::keyClick(form.get(), Qt::Key_N, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !form->isVisible(); }));
    EXPECT_EQ(form->result(), QDialog::Rejected);
}

TEST_F(FrmBilanCsvTest, NoChoiceWhereOnlyImagesAreMissing)
{
    bilan.signalees = {{2, 1, SansDefaut, u"x.png"_s}};
    Ouvrir();
    EXPECT_TRUE(form->findChild<QTableView*>());
    EXPECT_FALSE(form->findChild<QRadioButton*>());
    QTest::keyClick(form.get(), Qt::Key_Return);
    EXPECT_EQ(form->result(), QDialog::Accepted);
}

TEST(FrmAvancementCsv, ShowsHowFarItIsAndCanBeGivenUp)
{
    for (const int geste : {0, 1, 2}) {
        frmAvancementCsv form;
        form.Montrer(250);
        EXPECT_TRUE(form.isVisible());
        EXPECT_TRUE(form.isModal());
        EXPECT_EQ(form.findChild<QProgressBar*>()->value(), 250);
        EXPECT_FALSE(form.EstAbandonne());
        if (geste == 0)
            QTest::mouseClick(form.findChild<QPushButton*>(), Qt::LeftButton);
        else if (geste == 1)
            QTest::keyClick(&form, Qt::Key_Escape);
        else
            form.close();
        EXPECT_TRUE(form.EstAbandonne()) << geste;
    }
}
