#include "entries/frmEditEntree.h"

#include "catalogue/QrtClass.h"
#include "entries/ChampDEntree.h"
#include "support/Accessibilite.h"
#include "support/FileDeReponses.h"
#include "support/PlateformeDeTest.h"
#include "support/TableDeTest.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A category of three columns and three entries, and the editor on it.
class FrmEditEntreeTest : public testing::Test
{
protected:
    void SetUp() override
    {
        MettreColonnes(doc.table, {u"Titre"_s, u"Artiste"_s, u"Genre"_s});
        doc.table.ColumnHeaders(3).SetTag(u"rock|jazz|blues"_s);
        AjouterEntrees(doc.table, {{u"Dummy"_s, u"Portishead"_s, u"trip-hop"_s},
                                   {u"Blue"_s, u"Joni Mitchell"_s, u"folk"_s},
                                   {u"Kind of Blue"_s, u"Miles Davis"_s, u"jazz"_s}});
        PlateformeDeTest::Courante().horloge.heure = QDateTime(QDate(2026, 3, 5), QTime(9, 7));
        form.Table = &doc.table;
        form.CheminImages = doc.doc.TmpFolder;
        form.RendreVisible = [this](int ligne) { visible = ligne; };
    }

    /// Shows the editor on one entry, as the caller does.
    void Editer(int index)
    {
        doc.table.ListItems(index).SetSelected(true);
        form.IndexEntree = frmEditEntree::IndexPour(index);
        form.ChargerEntree();
        form.show();
    }
    /// Shows it for a new entry.
    void AjouterUne()
    {
        form.Charge = true;
        form.CacherNavigation();
        form.RemplirColonnes();
        form.show();
    }

    template<class Controle> Controle& Le(const char* nom) { return *form.findChild<Controle*>(nom); }
    QTreeWidget& LV() { return Le<QTreeWidget>("LV"); }
    ChampDEntree& Combo1() { return Le<ChampDEntree>("Combo1"); }
    void Taper(const QString& texte) { QTest::keyClicks(&Combo1(), texte); }
    void Touche(Qt::Key touche, Qt::KeyboardModifiers avec = Qt::NoModifier)
    {
        QTest::keyClick(&Combo1(), touche, avec);
    }
    /// The selected row, from 1; 0 for none.
    int Ligne()
    {
        return LV().selectedItems().isEmpty() ? 0 : LV().indexOfTopLevelItem(LV().selectedItems().at(0)) + 1;
    }

    DocumentDeTest doc;
    FileDeReponses messages;
    frmEditEntree form;
    int visible = 0;
};

} // namespace

TEST_F(FrmEditEntreeTest, OneEntryIsTypedByKeysAlone)
{
    Editer(1);
    EXPECT_EQ(Ligne(), 1);
    EXPECT_EQ(Combo1().Texte(), "Dummy");
    Taper(u" (live)"_s);
    Touche(Qt::Key_Return);
    EXPECT_EQ(Ligne(), 2);
    EXPECT_EQ(Combo1().Texte(), "Portishead");
    Touche(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(form.Valide);
    EXPECT_TRUE(form.Modifie);
    EXPECT_TRUE(form.Referme);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(doc.table.ListItems(1).Valeurs(), QStringList({"Dummy (live)", "Portishead", "trip-hop"}));
}

TEST_F(FrmEditEntreeTest, ANewEntryIsGatheredAndNotWritten)
{
    AjouterUne();
    Taper(u"Nevermind"_s);
    Touche(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(form.Valide);
    EXPECT_FALSE(form.Modifie);
    EXPECT_EQ(form.Valeurs(), QStringList({"Nevermind", "", ""}));
    EXPECT_EQ(doc.table.ListItems.Count(), 3);
}
