// The commands of lending, from the question who borrows to the table.
#include "lending/mPret.h"

#include "lending/FormesDePret.h"
#include "support/SuiteDeModales.h"
#include "support/TableDeTest.h"

#include <QRadioButton>

#include <sys/file.h>

using namespace Qt::StringLiterals;

namespace {

class MPretTest : public FormeDePret
{
protected:
    MPretTest()
    {
        MettreColonnes(table, {"Titre", "Coffret", "Prêté"});
        AjouterEntrees(table, {{"Aja", "A"}, {"Blue", "B"}, {"Dummy", "A"}});
        Liste("count=0\r\n");
    }

    void Choisir(int premiere, int derniere) { table.Selectionner(premiere, derniere, true); }
    QStringList Prets() const { return ColonneDe(table, 3); }

    static SuiteDeModales::Etape Nommer(const QString& nom, const QString& email = QString())
    {
        return {u"frmPreter"_s, [=](QWidget& form) {
                    QTest::keyClicks(form.findChild<QComboBox*>(u"noms"_s), nom);
                    Taper(Champ(form, "Text1"), email);
                    Cliquer(form, "btMettreAJour");
                }};
    }
    /// Answers the question of dependants with the first or the second choice, or cancels it (2).
    static SuiteDeModales::Etape Repondre(int choix)
    {
        return {u"frmSuppDependant"_s, [choix](QWidget& form) {
                    EXPECT_EQ(form.windowTitle(), u"Prêter des Entrées"_s);
                    const auto option = [&form](int i) {
                        return form.findChild<QRadioButton*>(u"Option1_%1"_s.arg(i));
                    };
                    EXPECT_EQ(option(0)->text(), u"Prêter les entrées sélectionnées"_s);
                    EXPECT_EQ(option(1)->text(), u"Prêter les entrées dépendantes"_s);
                    if (choix < 2)
                        QTest::mouseClick(option(choix), Qt::LeftButton, Qt::NoModifier,
                                          QPoint(8, option(choix)->height() / 2));
                    Cliquer(form, choix < 2 ? "btAjouter" : "Annuler");
                }};
    }

    DocumentDeTest document;
    Categorie& doc = document.doc;
    MyLV& table = document.table;
};

} // namespace

// ---- lending

TEST_F(MPretTest, LendsTheSelectionToWhoeverIsNamed)
{
    Choisir(1, 2);
    const SuiteDeModales suite({Nommer(u"Paul"_s, u"p@x.fr"_s)});
    MarquerPrete(doc);
    EXPECT_EQ(Prets(), QStringList({"Paul - 13/09/2005", "Paul - 13/09/2005", ""}));
    EXPECT_TRUE(doc.IlFautSauver);
    EXPECT_EQ(Ini(), "[Preter]\r\ncount=1\r\nNom1=Paul|p@x.fr\r\n");
    EXPECT_TRUE(reponses.Affiches().isEmpty());
}

TEST_F(MPretTest, TheDateIsThatOfTheRegion)
{
    PlateformeDeTest::Courante().region.locale = QLocale(QLocale::English, QLocale::UnitedStates);
    Choisir(1, 1);
    const SuiteDeModales suite({Nommer(u"Paul"_s)});
    MarquerPrete(doc);
    EXPECT_EQ(Prets().first(), "Paul - 9/13/2005");
}

TEST_F(MPretTest, WithoutASelectionNothingIsLentOrReturned)
{
    for (void (*commande)(QrtClass&) : {MarquerPrete, MarquerRendu}) {
        commande(doc);
        EXPECT_EQ(reponses.Cles().last(), "msg98");
        EXPECT_EQ(reponses.Affiches().last().message.texte, "Veuillez selectionner au moins une entree");
        EXPECT_FALSE(doc.IlFautSauver);
    }
    EXPECT_EQ(reponses.Affiches().size(), 2);
    EXPECT_EQ(Ini(), "[Preter]\r\ncount=0\r\n");
}

TEST_F(MPretTest, WithoutALoanColumnALoanSaysTotoFirst)
{
    table.ColumnHeaders(3).SetText(u"prêté"_s);
    Choisir(1, 1);
    MarquerPrete(doc);
    ASSERT_EQ(reponses.Cles(), QStringList({"toto", "msg31"}));
    EXPECT_EQ(reponses.Affiches()[0].titre, "");
    EXPECT_EQ(reponses.Affiches()[1].message.texte,
              u"La colonne vbNullStringPrêtévbNullString semble avoir disparue,l'action demandée ne peut pas etre "
              u"réalisée. Créez une colonne de ce nom là et réessayez l'opération"_s);
    MarquerRendu(doc);
    EXPECT_EQ(reponses.Cles(), QStringList({"toto", "msg31", "msg31"}));
    EXPECT_FALSE(doc.IlFautSauver);
}

TEST_F(MPretTest, TheLoanColumnIsTheLastOfThatTitle)
{
    table.ColumnHeaders(1).SetText(u"Prêté"_s);
    doc.IndexColPrete = 1;
    Choisir(1, 1);
    const SuiteDeModales suite({Nommer(u"Paul"_s)});
    MarquerPrete(doc);
    EXPECT_EQ(Prets().first(), "Paul - 13/09/2005");
    EXPECT_EQ(doc.IndexColPrete, 3);
}

TEST_F(MPretTest, NobodyNamedNothingLent)
{
    Choisir(1, 3);
    const SuiteDeModales suite({{u"frmPreter"_s, [](QWidget& form) { Cliquer(form, "btAnnuler"); }}});
    MarquerPrete(doc);
    EXPECT_EQ(Prets(), QStringList({"", "", ""}));
    EXPECT_FALSE(doc.IlFautSauver);
    EXPECT_EQ(Ini(), "[Preter]\r\ncount=0\r\n");
}

TEST_F(MPretTest, TheSameContactIsWrittenOnce)
{
    Choisir(1, 1);
    const SuiteDeModales suite({Nommer(u"Paul"_s, u"p"_s), Nommer(u"Paul"_s, u"p"_s), Nommer(u"Paul"_s, u"q"_s)});
    for (int fois = 0; fois < 3; ++fois) {
        table.ListItems(1).SetSubItems(2, QString());
        MarquerPrete(doc);
    }
    EXPECT_EQ(Ini(), "[Preter]\r\ncount=2\r\nNom1=Paul|p\r\nNom2=Paul|q\r\n");
}

TEST_F(MPretTest, AsksForEachLentEntryUntilOneIsReplaced)
{
    for (const int i : {1, 2, 3})
        table.ListItems(i).SetSubItems(2, u"Ida"_s);
    Choisir(1, 3);
    reponses.Preparer(RepAnnuler);
    reponses.Preparer(RepOk);
    const SuiteDeModales suite({Nommer(u"Paul"_s)});
    MarquerPrete(doc);
    EXPECT_EQ(reponses.Cles(), QStringList({"msg32", "msg32"}));
    EXPECT_EQ(reponses.Affiches()[0].genre, MsgOkAnnuler);
    EXPECT_EQ(reponses.Affiches()[0].message.texte,
              u"Certains CD sont deja pretés!! Doit-on remplacer le nom existant par le nouveau?"_s);
    EXPECT_EQ(Prets(), QStringList({"Paul - 13/09/2005", "Paul - 13/09/2005", "Ida"}));
}

TEST_F(MPretTest, ADependantCategoryIsAskedAbout)
{
    doc.dependantcol = 2;
    const QList<QStringList> attendus{{"Paul - 13/09/2005", "", ""}, {"Paul - 13/09/2005", "", "Paul - 13/09/2005"}};
    for (const int choix : {0, 1}) {
        for (int i = 1; i <= 3; ++i)
            table.ListItems(i).SetSubItems(2, QString());
        table.Selectionner(1, 3, false);
        Choisir(1, 1);
        const SuiteDeModales suite({Nommer(u"Paul"_s), Repondre(choix)});
        MarquerPrete(doc);
        EXPECT_EQ(Prets(), attendus[choix]);
    }
}

TEST_F(MPretTest, CancellingTheQuestionOfDependantsLeavesTheContact)
{
    doc.dependantcol = 2;
    Choisir(1, 1);
    const SuiteDeModales suite({Nommer(u"Paul"_s), Repondre(2)});
    MarquerPrete(doc);
    EXPECT_EQ(Prets(), QStringList({"", "", ""}));
    EXPECT_FALSE(doc.IlFautSauver);
    EXPECT_EQ(Ini(), "[Preter]\r\ncount=1\r\nNom1=Paul|\r\n");
}

TEST_F(MPretTest, AReadOnlySettingsFileIsMadeWritable)
{
    ASSERT_TRUE(plateforme().attributs->MettreLectureSeule(FichierZelvaneIni(), true));
    Choisir(1, 1);
    const SuiteDeModales suite({Nommer(u"Paul"_s)});
    MarquerPrete(doc);
    EXPECT_FALSE(plateforme().attributs->EstLectureSeule(FichierZelvaneIni()));
    EXPECT_TRUE(Ini().contains("Nom1=Paul|"));
}

TEST_F(MPretTest, ALoanStandsThoughTheContactCouldNotBeWritten)
{
    QFile autre(FichierZelvaneIni());
    ASSERT_TRUE(autre.open(QIODevice::ReadOnly));
    ASSERT_EQ(flock(autre.handle(), LOCK_EX), 0);
    Choisir(1, 1);
    const SuiteDeModales suite({Nommer(u"Paul"_s)});
    MarquerPrete(doc);
    ASSERT_EQ(reponses.Cles(), QStringList({"msgContactNonInscrit"}));
    EXPECT_EQ(
        reponses.Affiches()[0].message.texte,
        u"« Paul » n'a pas pu être ajouté à la liste des contacts, dans le fichier %1. Le prêt n'en dépend pas."_s.arg(
            FichierZelvaneIni()));
    EXPECT_EQ(Prets().first(), "Paul - 13/09/2005");
    EXPECT_EQ(Ini(), "[Preter]\r\ncount=0\r\n");
}

TEST_F(MPretTest, ARecordThatADamagedCountHidesIsAskedAbout)
{
    Liste("count=x\r\nNom1=Ida|\r\n");
    Choisir(1, 1);
    reponses.Preparer(RepNon);
    const SuiteDeModales suite({Nommer(u"Paul"_s)});
    MarquerPrete(doc);
    EXPECT_EQ(reponses.Cles(), QStringList({"msgContactsManquants", "msgContactsAPerdre", "msgContactNonInscrit"}));
    EXPECT_EQ(Prets().first(), "Paul - 13/09/2005");
    EXPECT_EQ(Ini(), "[Preter]\r\ncount=x\r\nNom1=Ida|\r\n");
}

// ---- return

TEST_F(MPretTest, AReturnIsConfirmed)
{
    table.ListItems(1).SetSubItems(2, u"Ida"_s);
    Choisir(1, 1);
    reponses.Preparer(RepNon);
    MarquerRendu(doc);
    EXPECT_EQ(Prets().first(), "Ida");
    EXPECT_FALSE(doc.IlFautSauver);
    reponses.Preparer(RepOui);
    MarquerRendu(doc);
    EXPECT_EQ(Prets().first(), "");
    EXPECT_TRUE(doc.IlFautSauver);
    EXPECT_EQ(reponses.Cles(), QStringList({"msg33", "msg33"}));
    EXPECT_EQ(reponses.Affiches()[0].genre, MsgOuiNon);
    EXPECT_EQ(reponses.Affiches()[0].message.texte, u"Toutes les entrées selectionnées vous ont ete rendu?"_s);
    EXPECT_EQ(Ini(), "[Preter]\r\ncount=0\r\n");
}

TEST_F(MPretTest, ADependantCategoryIsAskedTheOtherQuestionAlone)
{
    doc.dependantcol = 2;
    const QList<QStringList> attendus{{"", "Jo", "Ida"}, {"", "Jo", ""}, {"Lou", "Jo", "Ida"}};
    for (const int choix : {0, 1, 2}) {
        const QStringList prets{"Lou", "Jo", "Ida"};
        for (int i = 1; i <= 3; ++i)
            table.ListItems(i).SetSubItems(2, prets[i - 1]);
        table.Selectionner(1, 3, false);
        Choisir(1, 1);
        doc.IlFautSauver = false;
        const SuiteDeModales suite({Repondre(choix)});
        MarquerRendu(doc);
        EXPECT_EQ(Prets(), attendus[choix]);
        EXPECT_EQ(doc.IlFautSauver, choix != 2);
    }
    EXPECT_TRUE(reponses.Affiches().isEmpty());
}

TEST_F(MPretTest, TheFirstChoiceOfAReturnReachesAllOfTheSameLoan)
{
    doc.dependantcol = 2;
    for (const int i : {1, 2})
        table.ListItems(i).SetSubItems(2, u"Ida - 1/1/2001"_s);
    Choisir(1, 1);
    const SuiteDeModales suite({Repondre(0)});
    MarquerRendu(doc);
    EXPECT_EQ(Prets(), QStringList({"", "", ""}));
}
