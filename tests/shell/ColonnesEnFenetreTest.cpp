// Changes of columns while the document's window shows them.
#include "shell/CadreEnFenetre.h"
#include "support/SuiteDeModales.h"
#include "vue/ModeleTable.h"
#include "vue/VueTable.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>

namespace {

class ColonnesEnFenetre : public CadreEnFenetre
{
protected:
    void SetUp() override
    {
        Montrer();
        TexteDeCatalogue texte;
        texte.colonnes = {"Titre|2880|", "Artiste|1440|rock", "Prêté|600|"};
        texte.entrees = {"Abbey Road|Beatles||", "Thriller|Jackson|Paul|", "Zoo|Abba||"};
        ASSERT_TRUE(OuvrirFichier(*cadre, dossier.Ecrire("a.qrt", texte.Texte()), TypeQrt2, true));
        Laisser();
        fenetre = dynamic_cast<Form1*>(cadre->Documents().back());
    }

    /// Runs the command of a menu item, and the gesture in the dialog that comes.
    void Dans(const char* item, const char* dialogue, const std::function<void(QWidget&)>& geste)
    {
        const SuiteDeModales suite({{QString::fromLatin1(dialogue), [&](QWidget& form) {
                                         geste(form);
                                         Laisser();
                                         EXPECT_EQ(Vus(), Attendus()) << "while the dialog is open";
                                         form.close();
                                     }}});
        fenetre->findChild<QAction*>(QString::fromLatin1(item))->trigger();
        Laisser();
    }
    static void Choisir(QWidget& form, const char* liste, int position)
    {
        auto* champ = form.findChild<QComboBox*>(QString::fromLatin1(liste));
        champ->setFocus();
        for (int i = 0; i <= position; ++i)
            QTest::keyClick(champ, Qt::Key_Down);
    }
    static void Taper(QWidget& form, const char* champ, const QString& texte)
    {
        auto* ligne = form.findChild<QLineEdit*>(QString::fromLatin1(champ));
        ligne->selectAll();
        QTest::keyClicks(ligne, texte);
    }
    static void Cliquer(QWidget& form, const char* bouton)
    {
        QTest::mouseClick(form.findChild<QWidget*>(QString::fromLatin1(bouton)), Qt::LeftButton);
    }
    static void ChoisirLigne(QWidget& form, int position)
    {
        auto* liste = form.findChild<QListView*>("lstColonne3");
        const QRect place = liste->visualRect(liste->model()->index(position, 0));
        QTest::mouseClick(liste->viewport(), Qt::LeftButton, {}, place.center());
    }

    /// The titles and widths, in units of the table, that the window shows.
    QStringList Vus() const
    {
        const VueTable& vue = fenetre->ListView1();
        QStringList vus;
        for (int i = 0; i < vue.model()->columnCount(); ++i)
            vus.append(vue.model()->headerData(i, Qt::Horizontal).toString() + ' ' +
                       QString::number(vue.horizontalHeader()->sectionSize(i)));
        return vus;
    }
    QStringList Attendus() const
    {
        const MyLV& table = fenetre->myqrt.Table;
        QStringList attendus;
        for (int i = 1; i <= table.ColumnHeaders.Count(); ++i)
            attendus.append(table.ColumnHeaders(i).Text() + ' ' +
                            QString::number(fenetre->ListView1().PixelsDe(double(table.ColumnHeaders(i).Width()))));
        return attendus;
    }
    QString Cellule(int ligne, int colonne) const
    {
        const QAbstractItemModel& modele = *fenetre->ListView1().model();
        return modele.index(ligne - 1, colonne - 1).data().toString();
    }

    Form1* fenetre = nullptr;
};

} // namespace

TEST_F(ColonnesEnFenetre, EachDialogChangesWhatTheWindowShows)
{
    Dans("mModifierCategorie", "frmEditerColonnes", [](QWidget& form) {
        Taper(form, "newColonne", "Genre");
        Cliquer(form, "btAjouter");
    });
    EXPECT_EQ(Vus().size(), 4);
    EXPECT_EQ(Vus(), Attendus());
    Dans("mModifierCategorie", "frmEditerColonnes", [](QWidget& form) {
        ChoisirLigne(form, 1);
        Cliquer(form, "btMonter");
    });
    EXPECT_EQ(Cellule(1, 1), "Beatles");
    Dans("mFusionner2Colonnes", "frmFusionner", [](QWidget& form) {
        Choisir(form, "C1", 0);
        Choisir(form, "C2", 1);
        Taper(form, "Separateur", "-");
        Cliquer(form, "btfusionner");
    });
    EXPECT_EQ(Cellule(1, 1), "Beatles-Abbey Road");
    Dans("mSeparer1ColonneEn2", "frmSeparerEn2", [](QWidget& form) {
        Choisir(form, "C1", 0);
        Taper(form, "nom", "Titre");
        Taper(form, "Separateur", "-");
        Cliquer(form, "btseparer");
    });
    EXPECT_EQ(Cellule(1, 2), "Abbey Road");
    Dans("mDupliquerUneColonne", "frmSeparerEn2", [](QWidget& form) {
        EXPECT_EQ(form.windowTitle(), "Dupliquer une colonne");
        Choisir(form, "C1", 1);
        Taper(form, "nom", "Copie");
        Cliquer(form, "btDupliquer");
    });
    EXPECT_EQ(Cellule(2, 3), "Thriller");
    EXPECT_EQ(Vus(), Attendus());
    EXPECT_EQ(Vus().size(), 5);
    EXPECT_TRUE(fenetre->myqrt.IlFautSauver);
    fenetre->myqrt.IlFautSauver = false;
}

TEST_F(ColonnesEnFenetre, TheMarkerOfTheSortAndTheSelectionStay)
{
    MyLV& table = fenetre->myqrt.Table;
    table.ListItems(2).SetSelected(true);
    table.SetSelectedItem(table.ListItems(2));
    Laisser();
    Dans("mModifierCategorie", "frmEditerColonnes", [](QWidget& form) {
        ChoisirLigne(form, 0);
        Cliquer(form, "btDescendre");
    });
    const QAbstractItemModel& modele = *fenetre->ListView1().model();
    EXPECT_FALSE(modele.headerData(1, Qt::Horizontal, Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_TRUE(modele.headerData(0, Qt::Horizontal, Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_EQ(table.SortKey(), 1);
    Dans("mSeparer1ColonneEn2", "frmSeparerEn2", [](QWidget& form) {
        Choisir(form, "C1", 0);
        Taper(form, "nom", "Suite");
        Cliquer(form, "btseparer");
    });
    EXPECT_TRUE(fenetre->ListView1().selectionModel()->isRowSelected(1));
    EXPECT_FALSE(fenetre->ListView1().selectionModel()->isRowSelected(0));
    EXPECT_EQ(fenetre->ListView1().currentIndex().row(), 1);
    EXPECT_EQ(table.SelectedItem().Text(), "Jackson");
    fenetre->myqrt.IlFautSauver = false;
}

TEST_F(ColonnesEnFenetre, KeysAndPopUpsOpenTheDialogOfColumns)
{
    QStringList ouverts;
    for (int i = 0; i < 2; ++i) {
        const SuiteDeModales suite({{"frmEditerColonnes", [&](QWidget& form) {
                                         ouverts.append(form.objectName());
                                         form.close();
                                     }}});
        if (i == 0)
            QTest::keyClick(cadre.get(), Qt::Key_M, Qt::ControlModifier);
        else
            fenetre->mModifierCategorie_Click();
        Laisser();
    }
    EXPECT_EQ(ouverts.size(), 2);
    EXPECT_FALSE(fenetre->myqrt.IlFautSauver);
}
