#include "lending/Contacts.h"

#include "base/Const_Vrac.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <gtest/gtest.h>

#include <sys/file.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

class ContactsTest : public testing::Test
{
protected:
    /// The section of the settings file, with something before and behind it.
    void Liste(const QByteArray& section)
    {
        dossier.Ecrire("Zelvane.ini",
                       "[FileInfo]\r\nVersion=2\r\n\r\n[Preter]\r\n" + section + "\r\n[Internet]\r\nUseProxy=0\r\n");
    }
    QByteArray Section() const
    {
        const QByteArray texte = dossier.Lire("Zelvane.ini");
        const qsizetype debut = texte.indexOf("[Preter]\r\n") + 10;
        return texte.mid(debut, texte.indexOf("\r\n[Internet]") - debut);
    }
    ContactsLus Lire() const { return LireContacts(fichier); }
    QStringList Noms() const
    {
        QStringList noms;
        for (const Contact& contact : Lire().contacts)
            noms.append(contact.nom + u'/' + contact.email);
        return noms;
    }
    IssueInscription Inscrire(const QString& nom, const QString& email)
    {
        return InscrireContact(fichier, {nom, email}, [this] {
            ++questions;
            return perteAcceptee;
        });
    }

    const DossierDeTest& dossier = PlateformeDeTest::Courante().dossier;
    QString fichier = FichierZelvaneIni();
    bool perteAcceptee = false;
    int questions = 0;
};

// ---- reading

TEST_F(ContactsTest, ReadsTheRecordsInTheirOrder)
{
    Liste("Nom2=\xC9lodie|e@x.fr\r\ncount=2\r\nNom1=Paul|\r\n");
    EXPECT_EQ(Noms(), QStringList({"Paul/", u"Élodie/e@x.fr"_s}));
    EXPECT_EQ(Lire().compte, 2);
    EXPECT_EQ(Lire().manquants, 0);
    EXPECT_FALSE(Lire().aPerdre);
}

TEST_F(ContactsTest, AMissingFileIsAnEmptyList)
{
    EXPECT_EQ(Lire(), ContactsLus());
}

TEST_F(ContactsTest, IgnoresTheRecordsBehindTheCount)
{
    Liste("count=1\r\nNom1=Paul|\r\nNom2=Ida|\r\n");
    EXPECT_EQ(Noms(), QStringList({"Paul/"}));
    EXPECT_EQ(Lire().manquants, 0);
    EXPECT_FALSE(Lire().aPerdre);
}

TEST_F(ContactsTest, OfTwoRecordsOfOneNumberTheFirstCounts)
{
    Liste("count=1\r\nNom01=Jo|\r\nNOM1=Paul|\r\nNom1=Ida|\r\n");
    EXPECT_EQ(Noms(), QStringList({"Paul/"}));
}

TEST_F(ContactsTest, ARecordWithoutABarIsTold)
{
    Liste("count=3\r\nNom1=Paul|p\r\nNom2=Ida\r\nNom3=Jo|\r\n");
    EXPECT_EQ(Noms(), QStringList({"Paul/p", "Jo/"}));
    EXPECT_EQ(Lire().manquants, 1);
    EXPECT_TRUE(Lire().aPerdre);
}

TEST_F(ContactsTest, ACountThatIsTooLargeIsToldAndHidesNothing)
{
    Liste("count=1000000000\r\nNom1=Paul|\r\nNom3=Jo|\r\n");
    EXPECT_EQ(Noms(), QStringList({"Paul/", "Jo/"}));
    EXPECT_EQ(Lire().manquants, 999'999'998);
    EXPECT_FALSE(Lire().aPerdre) << "what is not there cannot be lost";
}

TEST_F(ContactsTest, ACountThatIsNoneHidesRecordsAndIsTold)
{
    for (const char* compte : {"", "count=\r\n", "count=abc\r\n", "count=-3\r\n"}) {
        Liste(QByteArray(compte) + "Nom1=Paul|\r\nNom2=Jo|\r\n");
        EXPECT_EQ(Lire().compte, 0) << compte;
        EXPECT_EQ(Lire().manquants, 2) << compte;
        EXPECT_TRUE(Lire().aPerdre) << compte;
    }
    Liste("count=1x\r\nNom1=Paul|\r\nNom2=Jo|\r\n");
    EXPECT_EQ(Noms(), QStringList({"Paul/"}));
    EXPECT_EQ(Lire().manquants, 1);
}

TEST_F(ContactsTest, ARecordThatIsTooLongToBeReadWholeIsTold)
{
    Liste("count=1\r\nNom1=Paul|" + QByteArray(1100, 'x') + "\r\n");
    EXPECT_EQ(Lire().manquants, 1);
    EXPECT_TRUE(Lire().aPerdre);
}

TEST_F(ContactsTest, WhatStandsBehindASecondBarIsNotReadAndCouldBeLost)
{
    Liste("count=1\r\nNom1=Paul|Louis|p@x.fr\r\n");
    EXPECT_EQ(Noms(), QStringList({"Paul/Louis"}));
    EXPECT_EQ(Lire().manquants, 0);
    EXPECT_TRUE(Lire().aPerdre);
}

TEST_F(ContactsTest, AFileThatCannotBeReadMustNotBeLost)
{
    PlateformeDeTest& p = PlateformeDeTest::Courante();
    plateforme().ini = &p.iniEnMemoire;
    p.iniEnMemoire.fichiers.insert(fichier, "[Preter]\r\ncount=1\r\nNom1=Paul|\r\n");
    p.iniEnMemoire.fermes.insert(fichier);
    EXPECT_TRUE(Lire().aPerdre);
    EXPECT_EQ(Inscrire("Jo", ""), IssueInscription::Impossible);
    EXPECT_EQ(p.iniEnMemoire.ecritures, 0);
}

TEST_F(ContactsTest, ReadsAMillionRecordsInOnePass)
{
    QByteArray section = "count=1000000\r\n";
    for (int i = 1; i <= 1'000'000; ++i)
        section += "Nom" + QByteArray::number(i) + "=P" + QByteArray::number(i) + "|\r\n";
    Liste(section);
    const ContactsLus lus = Lire();
    ASSERT_EQ(lus.contacts.size(), 1'000'000U);
    EXPECT_EQ(lus.contacts.back().nom, "P1000000");
    EXPECT_EQ(Inscrire("Jo", ""), IssueInscription::Inscrit);
    EXPECT_TRUE(EcrireContacts(fichier, lus.contacts));
    EXPECT_EQ(Lire(), lus);
}

// ---- writing

TEST_F(ContactsTest, WritesTheListAndLeavesTheRestOfTheFile)
{
    Liste("Count=3\r\nNom1=a|\r\nNom2=b|\r\nNom3=c|\r\n");
    ASSERT_TRUE(EcrireContacts(fichier, {{"Paul", "p@x.fr"}, {u"Élodie"_s, ""}}));
    EXPECT_EQ(Section(), "Count=2\r\nNom1=Paul|p@x.fr\r\nNom2=\xC9lodie|\r\nNom3=c|\r\n");
    EXPECT_TRUE(dossier.Lire("Zelvane.ini").startsWith("[FileInfo]\r\nVersion=2\r\n"));
    EXPECT_TRUE(dossier.Lire("Zelvane.ini").endsWith("[Internet]\r\nUseProxy=0\r\n"));
}

TEST_F(ContactsTest, MakesTheSectionAndTheFileThatAreMissing)
{
    ASSERT_TRUE(EcrireContacts(fichier, {{"Paul", ""}}));
    EXPECT_EQ(dossier.Lire("Zelvane.ini"), "[Preter]\r\ncount=1\r\nNom1=Paul|\r\n");
}

TEST_F(ContactsTest, TakesTheReadOnlyAttributeAwayAndThatAlone)
{
    Liste("count=0\r\n");
    const QByteArray chemin = fichier.toLocal8Bit();
    ASSERT_EQ(chmod(chemin.constData(), 0540), 0);
    EXPECT_TRUE(EcrireContacts(fichier, {{"Paul", ""}}));
    struct stat etat
    {
    };
    ASSERT_EQ(stat(chemin.constData(), &etat), 0);
    EXPECT_EQ(etat.st_mode & 0777, 0740U);
    EXPECT_EQ(Noms(), QStringList({"Paul/"}));
}

TEST_F(ContactsTest, AnAttributeThatStaysIsAFailureAndNothingIsWritten)
{
    PlateformeDeTest& p = PlateformeDeTest::Courante();
    plateforme().ini = &p.iniEnMemoire;
    plateforme().attributs = &p.attributsEnMemoire;
    const QByteArray avant = "[Preter]\r\ncount=0\r\n";
    p.iniEnMemoire.fichiers.insert(fichier, avant);
    p.iniEnMemoire.proteges.insert(fichier);
    p.attributsEnMemoire.lectureSeule.insert(fichier);
    p.attributsEnMemoire.figes.insert(fichier);
    EXPECT_EQ(Inscrire("Paul", ""), IssueInscription::Impossible);
    EXPECT_FALSE(EcrireContacts(fichier, {{"Paul", ""}}));
    EXPECT_EQ(p.iniEnMemoire.fichiers.value(fichier), avant);
}

TEST_F(ContactsTest, AFileThatAnotherProgramHoldsIsNotWritten)
{
    Liste("count=0\r\n");
    QFile autre(fichier);
    ASSERT_TRUE(autre.open(QIODevice::ReadWrite));
    ASSERT_EQ(flock(autre.handle(), LOCK_EX | LOCK_NB), 0);
    EXPECT_EQ(Inscrire("Paul", ""), IssueInscription::Impossible);
    EXPECT_FALSE(EcrireContacts(fichier, {{"Paul", ""}}));
    EXPECT_EQ(Section(), "count=0\r\n");
    autre.close();
    EXPECT_EQ(Inscrire("Paul", ""), IssueInscription::Inscrit);
}

// ---- adding somebody

TEST_F(ContactsTest, ASomebodyNewIsWrittenBehindTheOthers)
{
    Liste("count=1\r\nNom1=Ida|\r\n");
    EXPECT_EQ(Inscrire("Paul", "p@x.fr"), IssueInscription::Inscrit);
    EXPECT_EQ(Section(), "count=2\r\nNom1=Ida|\r\nNom2=Paul|p@x.fr\r\n");
    EXPECT_EQ(questions, 0);
}

TEST_F(ContactsTest, TheSameNameWithTheSameEMailIsWrittenOnceWithAnotherTwice)
{
    EXPECT_EQ(Inscrire("Paul", "p@x.fr"), IssueInscription::Inscrit);
    EXPECT_EQ(Inscrire("Paul", "p@x.fr"), IssueInscription::Connu);
    EXPECT_EQ(Inscrire("Paul", ""), IssueInscription::Inscrit);
    EXPECT_EQ(Inscrire("paul", ""), IssueInscription::Inscrit) << "names differ by case";
    EXPECT_EQ(Noms(), QStringList({"Paul/p@x.fr", "Paul/", "paul/"}));
}

TEST_F(ContactsTest, WhatTheFileCannotHoldMakesNobodyNew)
{
    for (const QString& nom : {u"Łukasz"_s, u" Paul"_s, u"\"Jo"_s}) {
        EXPECT_EQ(Inscrire(nom, u"x\" "_s), IssueInscription::Inscrit) << nom.toStdString();
        EXPECT_EQ(Inscrire(nom, u"x\" "_s), IssueInscription::Connu) << nom.toStdString();
    }
}

TEST_F(ContactsTest, ARecordBehindTheCountIsNoneThatIsKnown)
{
    Liste("count=0\r\nNom1=Paul|\r\n");
    EXPECT_EQ(Inscrire("Paul", ""), IssueInscription::Inscrit);
    EXPECT_EQ(Section(), "count=1\r\nNom1=Paul|\r\n");
    EXPECT_EQ(Inscrire("Ida", ""), IssueInscription::Inscrit);
    EXPECT_EQ(questions, 0) << "a list that became shorter leaves records";
}

TEST_F(ContactsTest, ARecordThatACountHidesIsOverwrittenOnlyAfterAQuestion)
{
    Liste("count=abc\r\nNom1=Paul|\r\n");
    EXPECT_EQ(Inscrire("Ida", ""), IssueInscription::Laisse);
    EXPECT_EQ(Section(), "count=abc\r\nNom1=Paul|\r\n");
    EXPECT_EQ(questions, 1);
    perteAcceptee = true;
    EXPECT_EQ(Inscrire("Ida", ""), IssueInscription::Inscrit);
    EXPECT_EQ(Section(), "count=1\r\nNom1=Ida|\r\n");
}

TEST_F(ContactsTest, AKnownNameTakesTheAttributeAwayToo)
{
    Liste("count=1\r\nNom1=Paul|\r\n");
    ASSERT_TRUE(plateforme().attributs->MettreLectureSeule(fichier, true));
    EXPECT_EQ(Inscrire("Paul", ""), IssueInscription::Connu);
    EXPECT_FALSE(plateforme().attributs->EstLectureSeule(fichier));
}

// ---- making the file

TEST_F(ContactsTest, MakesTheFileWhereThereIsNone)
{
    CreerFichierDesContacts(fichier);
    EXPECT_EQ(dossier.Lire("Zelvane.ini"),
              "[FileInfo]\r\nType=QRT INI FILE\r\nVersion=2\r\n\r\n[Preter]\r\ncount=0\r\n");
    dossier.Ecrire("Zelvane.ini", "autre");
    CreerFichierDesContacts(fichier);
    EXPECT_EQ(dossier.Lire("Zelvane.ini"), "autre");
}

} // namespace
