// The commands of lending, from the menus of a document to its table.
#include "Form1EnFenetre.h"

#include "support/SuiteDeModales.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

SuiteDeModales::Etape Nommer(const QString& nom)
{
    return {u"frmPreter"_s, [nom](QWidget& form) {
                QTest::keyClicks(form.findChild<QComboBox*>(u"noms"_s), nom);
                QTest::keyClick(form.findChild<QComboBox*>(u"noms"_s), Qt::Key_Return);
            }};
}

QStringList Prets(const Form1& fenetre)
{
    QCoreApplication::processEvents();
    const QAbstractItemModel& modele = *fenetre.ListView1().model();
    QStringList prets;
    for (int i = 0; i < modele.rowCount(); ++i)
        prets.append(modele.index(i, 2).data().toString());
    return prets;
}

} // namespace

TEST_F(Form1Test, ALoanAndItsReturnAreSeenInTheTableAtOnce)
{
    const Form1& fenetre = Ouvrir();
    CliquerEntree(fenetre, 2);
    {
        const SuiteDeModales suite({Nommer(u"Paul"_s)});
        Commande(fenetre, u"mMarquerCommePrete"_s).trigger();
    }
    EXPECT_EQ(Prets(fenetre), QStringList({"", "Paul - 13/09/2005", ""}));
    EXPECT_TRUE(fenetre.myqrt.IlFautSauver);
    reponses.Preparer(RepOui);
    Commande(fenetre, u"mMarquerCommerendu"_s).trigger();
    EXPECT_EQ(Prets(fenetre), QStringList({"", "", ""}));
    EXPECT_EQ(PlateformeDeTest::Courante().dossier.Lire(u"Zelvane.ini"_s).count("Nom1=Paul|"), 1);
}

TEST_F(Form1Test, TheSelectionThatALoanWidensIsCounted)
{
    Form1& fenetre = Ouvrir(u"disques.qrt"_s, {"Aja|A|", "Blue|B|", "Dummy|A|"});
    fenetre.myqrt.dependantcol = 2;
    CliquerEntree(fenetre, 3);
    const SuiteDeModales suite({Nommer(u"Paul"_s), {u"frmSuppDependant"_s, [](QWidget& form) {
                                                        form.findChild<QRadioButton*>(u"Option1_1"_s)->click();
                                                        form.findChild<QPushButton*>(u"btAjouter"_s)->click();
                                                    }}});
    Commande(fenetre, u"mMarquerCommePrete"_s).trigger();
    EXPECT_EQ(Prets(fenetre), QStringList({"Paul - 13/09/2005", "", "Paul - 13/09/2005"}));
    EXPECT_EQ(Panneau(fenetre, 2), u"2 selectionnée(s)"_s);
}

TEST_F(Form1Test, TheContactsOpenFromTheMenu)
{
    const Form1& fenetre = Ouvrir();
    const FermeModales modales;
    Commande(fenetre, u"mOrganiserSesContacts"_s).trigger();
    EXPECT_EQ(modales.fenetres, QStringList{u"frmContacts"_s});
}

TEST_F(Form1Test, TheMailOfAllDocumentsIsOneFormThatKeepsItsTexts)
{
    const Form1& a = Ouvrir(u"a.qrt"_s, {"Aja||Ida - 1/1/2001|"});
    const Form1& b = Ouvrir(u"b.qrt"_s);
    const auto texte = [](const QWidget& form) { return form.findChild<QLineEdit*>(u"txtTo"_s)->text(); };
    const SuiteDeModales suite({{u"frmMail"_s,
                                 [&](QWidget& form) {
                                     EXPECT_EQ(texte(form), "") << "nothing of the loans";
                                     QTest::keyClicks(form.findChild<QLineEdit*>(u"txtTo"_s), u"ida"_s);
                                     form.close();
                                 }},
                                {u"frmMail"_s, [&](QWidget& form) {
                                     EXPECT_EQ(texte(form), "ida");
                                     form.close();
                                 }}});
    Commande(a, u"mEnvoyerMailAvertissement"_s).trigger();
    Commande(b, u"mEnvoyerMailAvertissement"_s).trigger();
}
