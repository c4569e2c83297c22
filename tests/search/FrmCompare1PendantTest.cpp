// What the user does while the comparison runs: it lets him have his turn before the merge, and before what is left of
// either table.
#include "platform/Retenue.h"
#include "search/ComparaisonEnFenetre.h"

#include <QDialog>
#include <QPointer>

namespace {

class FrmCompare1Pendant : public ComparaisonEnFenetre
{
protected:
    void SetUp() override
    {
        ComparaisonEnFenetre::SetUp();
        form = &ComparateurDesDeux();
        deux->Decharger();
        Laisser();
        OuvrirLeDeuxieme();
        // Sorted as no column of the comparison is.
        for (Form1* fenetre : {un, deux}) {
            fenetre->myqrt.Table.SetSortKey(1);
            fenetre->myqrt.Table.SetSortOrder(1);
        }
        Laisser();
    }

    /// With more behind the end of the first one, so that each step has something to do.
    void OuvrirLeDeuxieme()
    {
        deux = &OuvrirAvec("deux.qrt", {"Takk|Autre||", "Zut|Zappa||", "Bof|Abba||", "aja|x||", "Zzz|Zz||"});
    }

    /// Does `geste` at one of the points at which events are let through: 0 before the merge, 1 and 2 ahead of what is
    /// left of the second and of the first table.
    void ComparerEt(int point, const std::function<void()>& geste)
    {
        m_point = point;
        m_geste = geste;
        m_faits = 0;
        const auto lien = QObject::connect(&De<QProgressBar>(*form, "progress"), &QProgressBar::valueChanged, form,
                                           [this](int valeur) {
                                               if (valeur > 0 && m_point > 0 && --m_point == 0)
                                                   Poster();
                                           });
        ComparaisonEnFenetre::Comparer(*form, 0, 0, [this](QWidget& colonnes) {
            if (m_point == 0)
                QObject::connect(&static_cast<QDialog&>(colonnes), &QDialog::finished, cadre.get(),
                                 [this] { Poster(); });
        });
        QObject::disconnect(lien);
        EXPECT_EQ(m_faits, 1);
        Laisser();
    }
    void Poster()
    {
        QMetaObject::invokeMethod(
            cadre.get(),
            [this] {
                ++m_faits;
                m_geste();
            },
            Qt::QueuedConnection);
    }
    static bool ADeNouveauSonTri(const Form1& fenetre)
    {
        return fenetre.myqrt.Table.SortKey() == 1 && fenetre.myqrt.Table.SortOrder() == 1;
    }
    static void CliquerTitre(const Form1& fenetre, int colonne)
    {
        QHeaderView& titres = *fenetre.ListView1().horizontalHeader();
        QTest::mouseClick(titres.viewport(), Qt::LeftButton, {},
                          QPoint(titres.sectionViewportPosition(colonne - 1) + 20, titres.height() / 2));
    }
    /// It ended without a word and without results.
    void AttendreUneFinTranquille()
    {
        EXPECT_TRUE(Messages().isEmpty());
        EXPECT_EQ(form->windowTitle(), "Comparaisons de deux listes");
        EXPECT_EQ(Colonne(*form, "ListView1"), QStringList());
        EXPECT_EQ(Colonne(*form, "ListView2"), QStringList());
        EXPECT_EQ(De<QProgressBar>(*form, "progress").value(), 0);
        EXPECT_FALSE(QGuiApplication::overrideCursor());
    }

    frmCompare1* form = nullptr;

private:
    int m_point = 0;
    int m_faits = 0;
    std::function<void()> m_geste;
};

constexpr int Points[] = {0, 1, 2};

} // namespace

TEST_F(FrmCompare1Pendant, TheTablesAreSortedOnTheScreenMeanwhile)
{
    for (const int point : Points) {
        QStringList premiers;
        ComparerEt(point, [&] {
            un->ListView1().Modele().Rafraichir();
            premiers = {un->ListView1().model()->index(0, 0).data().toString(),
                        ColonneDe(deux->myqrt.Table, 1).first()};
        });
        EXPECT_EQ(premiers, QStringList({"Aja", "aja"})) << point;
        EXPECT_EQ(form->windowTitle(), "Resultats: 2>1: 3 - 1>2: 1");
        EXPECT_TRUE(ADeNouveauSonTri(*un));
        EXPECT_TRUE(ADeNouveauSonTri(*deux));
    }
}

TEST_F(FrmCompare1Pendant, ProgressIsSeenMeanwhile)
{
    bool vue = false;
    ComparerEt(1, [&] { vue = De<QProgressBar>(*form, "progress").isVisible(); });
    EXPECT_TRUE(vue);
    EXPECT_FALSE(De<QProgressBar>(*form, "progress").isVisible());
}

TEST_F(FrmCompare1Pendant, ADocumentThatIsClosedEndsIt)
{
    for (const int point : Points) {
        ComparerEt(point, [this] { deux->findChild<QAction*>("mFermer")->trigger(); });
        EXPECT_EQ(cadre->Documents().size(), 1) << point;
        AttendreUneFinTranquille();
        EXPECT_TRUE(ADeNouveauSonTri(*un)) << point;
        OuvrirLeDeuxieme();
    }
}

TEST_F(FrmCompare1Pendant, BothDocumentsThatAreClosedEndIt)
{
    ComparerEt(1, [this] {
        un->Decharger();
        deux->Decharger();
    });
    EXPECT_TRUE(cadre->Documents().empty());
    AttendreUneFinTranquille();
}

TEST_F(FrmCompare1Pendant, ATableThatTheUserSortsKeepsHisSort)
{
    for (const int point : Points) {
        ComparerEt(point, [this] { CliquerTitre(*deux, 3); });
        AttendreUneFinTranquille();
        EXPECT_EQ(deux->myqrt.Table.SortKey(), 2) << point;
        EXPECT_EQ(deux->myqrt.Table.SortOrder(), 0);
        EXPECT_TRUE(ADeNouveauSonTri(*un)) << point;
        deux->myqrt.Table.SetSortKey(1);
        deux->myqrt.Table.SetSortOrder(1);
    }
}

TEST_F(FrmCompare1Pendant, ATableThatIsEditedEndsItAndGetsItsSortBack)
{
    for (const int point : Points) {
        ComparerEt(point, [this] { un->myqrt.Table.ListItems(1).SetText("Aj"); });
        AttendreUneFinTranquille();
        EXPECT_TRUE(ADeNouveauSonTri(*un)) << point;
        EXPECT_TRUE(ADeNouveauSonTri(*deux)) << point;
    }
    ComparerEt(0, [this] { deux->myqrt.Table.ListItems.Clear(); });
    AttendreUneFinTranquille();
}

TEST_F(FrmCompare1Pendant, ClosingTheWindowEndsIt)
{
    for (const int point : Points) {
        ComparerEt(point, [this] { QTest::keyClick(form, Qt::Key_Escape); });
        EXPECT_TRUE(cadre->findChildren<frmCompare1*>().isEmpty()) << point;
        EXPECT_TRUE(Messages().isEmpty());
        EXPECT_TRUE(ADeNouveauSonTri(*un)) << point;
        EXPECT_TRUE(ADeNouveauSonTri(*deux)) << point;
        EXPECT_FALSE(QGuiApplication::overrideCursor());
        form = &Comparateur();
        Liste(*form, 0).setCurrentIndex(0);
        Liste(*form, 1).setCurrentIndex(1);
    }
}

TEST_F(FrmCompare1Pendant, AComparisonThatEndsSoTakesTheResultsOfTheLastOneAlong)
{
    ComparaisonEnFenetre::Comparer(*form);
    ASSERT_EQ(form->windowTitle(), "Resultats: 2>1: 3 - 1>2: 1");
    ComparerEt(1, [this] { deux->Decharger(); });
    AttendreUneFinTranquille();
}

TEST_F(FrmCompare1Pendant, AWindowThatWasClosedIsThereUntilTheComparisonHasEnded)
{
    const QPointer<frmCompare1> ancienne = form;
    ComparerEt(1, [&ancienne] {
        ancienne->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(ancienne);
    });
    EXPECT_FALSE(ancienne);
}

TEST_F(FrmCompare1Pendant, AWindowClosedAndOpenedAgainIsAnother)
{
    ComparerEt(1, [this] {
        form->close();
        frmCompare1::Montrer(*cadre, *cadre, Qt::NonModal);
    });
    const auto restees = cadre->findChildren<frmCompare1*>();
    ASSERT_EQ(restees.size(), 1);
    EXPECT_NE(restees.first(), form);
    EXPECT_TRUE(restees.first()->isVisible());
    EXPECT_TRUE(ADeNouveauSonTri(*un));
}

TEST_F(FrmCompare1Pendant, ASecondPressOfTheButtonIsPassedOver)
{
    for (const int point : Points) {
        ComparerEt(point, [this] { Cliquer(*form, "btComparer"); });
        EXPECT_FALSE(QApplication::activeModalWidget());
        EXPECT_EQ(Colonne(*form, "ListView2"), QStringList({"Bof", "Zut", "Zzz"}));
        EXPECT_EQ(form->windowTitle(), "Resultats: 2>1: 3 - 1>2: 1");
    }
}

TEST_F(FrmCompare1Pendant, SwappedTextsChangeNothingOfWhatIsTold)
{
    deux->myqrt.Table.ListItems.Clear();
    AjouterEntrees(deux->myqrt.Table, {{"aja"}});
    ComparerEt(0, [this] { Cliquer(*form, "btInverser"); });
    EXPECT_EQ(Messages(),
              QStringList(QStringLiteral("Toutes les entrees du fichier \"%1\"  sont presentes dans le fichier \"%2\"")
                              .arg(un->myqrt.CheminReel(), deux->myqrt.CheminReel())));
}

TEST_F(FrmCompare1Pendant, AFileFromAnotherStartOpensAndTheComparisonGoesOn)
{
    for (const int point : Points) {
        const QString chemin = Ecrire(QStringLiteral("trois%1.qrt").arg(point), {"Tout|||"});
        ComparerEt(point, [&] { cadre->My_Instance.ReceiveOutputs(chemin); });
        EXPECT_EQ(cadre->Documents().back()->myqrt.CheminReel(), chemin);
        EXPECT_EQ(form->windowTitle(), "Resultats: 2>1: 3 - 1>2: 1");
        EXPECT_TRUE(ADeNouveauSonTri(*un));
    }
}

TEST_F(FrmCompare1Pendant, TheFrameMayBeClosed)
{
    ComparerEt(1, [this] { cadre->close(); });
    EXPECT_TRUE(cadre->Documents().empty());
    EXPECT_TRUE(Messages().isEmpty());
}

TEST_F(FrmCompare1Pendant, ADocumentClosedAheadOfTheColumnsEndsItWithoutAskingForThem)
{
    QMetaObject::invokeMethod(
        cadre.get(), [this] { deux->Decharger(); }, Qt::QueuedConnection);
    Cliquer(*form, "btComparer");
    EXPECT_EQ(cadre->Documents().size(), 1);
    AttendreUneFinTranquille();
    EXPECT_TRUE(ADeNouveauSonTri(*un));
}

TEST_F(FrmCompare1Pendant, TextsThatBecomeEqualAheadOfTheColumnsAreThoseOfTheNextTime)
{
    QMetaObject::invokeMethod(
        cadre.get(), [this] { Liste(*form, 1).setCurrentIndex(0); }, Qt::QueuedConnection);
    ComparaisonEnFenetre::Comparer(*form);
    EXPECT_EQ(form->windowTitle(), "Resultats: 2>1: 3 - 1>2: 1");
}

TEST_F(FrmCompare1Pendant, TheWindowClosedAheadOfTheColumnsEndsItToo)
{
    QMetaObject::invokeMethod(
        cadre.get(), [this] { form->close(); }, Qt::QueuedConnection);
    Cliquer(*form, "btComparer");
    EXPECT_FALSE(QApplication::activeModalWidget());
    Laisser();
    EXPECT_TRUE(cadre->findChildren<frmCompare1*>().isEmpty());
}

TEST_F(FrmCompare1Pendant, ItWaitsUntilAFileIsReplaced)
{
    {
        const Retenue retenue;
        Cliquer(*form, "btComparer");
        EXPECT_EQ(De<QProgressBar>(*form, "progress").maximum(), 100) << "nothing has begun";
    }
    const GardeModale garde([](QWidget& colonnes) { Cliquer(colonnes, "btComparer"); });
    Laisser();
    EXPECT_EQ(form->windowTitle(), "Resultats: 2>1: 3 - 1>2: 1");
}
