#include "catalogue/documents/SecoursDesDocuments.h"

#include "base/DossiersTemp.h"
#include "catalogue/documents/Sauver.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/LectureQrt.h"
#include "support/ArchiveDeTest.h"
#include "support/CadreDeTest.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"
#include "support/TableDeTest.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

class Secours : public testing::Test
{
protected:
    Secours() : fenetre(Nouvelle(u"disques.qrt"_s)), doc(fenetre.myqrt) {}

    FenetreDeTest& Nouvelle(const QString& nom)
    {
        cadre.NouvelleFenetre();
        FenetreDeTest& neuve = *cadre.fenetres.back();
        neuve.myqrt.TmpFolder = CreerDossierTemp();
        neuve.myqrt.SetCheminReel(u"/home/moi/"_s + nom);
        neuve.myqrt.FileType = u"2"_s;
        neuve.SetCaption(nom);
        MettreColonnes(neuve.table, {"Titre", "Prêté"});
        AjouterEntrees(neuve.table, {{"Dummy", ""}});
        return neuve;
    }

    /// The user pauses for so long, and a beat comes each second.
    void Attendre(qint64 secondes)
    {
        for (qint64 i = 0; i < secondes; ++i) {
            moment.maintenant += 1000;
            while (AvancerLesSecours(cadre, moment))
                QThread::usleep(100);
        }
    }
    void Toucher() { moment.derniereTouche = moment.maintenant; }
    void Changer(const QString& texte)
    {
        fenetre.table.ListItems(1).SetText(texte);
        doc.IlFautSauver = true;
        Toucher();
    }
    std::optional<QString> TitreEcrit() const { return TitreEcrit(doc); }
    static std::optional<QString> TitreEcrit(const Categorie& document)
    {
        const auto texte = LireTexteDeSecours(FichierDeSecours(document.TmpFolder));
        DocumentDeTest lu;
        return texte && ChargerTexteExact(lu.doc, *texte) ? std::optional(lu.table.ListItems(1).Text()) : std::nullopt;
    }
    std::optional<IdentiteDeSecours> Identite() const { return LireIdentite(FichierDeSecours(doc.TmpFolder)); }

    CadreDeTest cadre;
    FenetreDeTest& fenetre;
    Categorie& doc;
    MomentDeSecours moment{100000, 100000};
};

} // namespace

TEST_F(Secours, AnUnchangedDocumentIsNamedAndNotCopied)
{
    Attendre(100);
    ASSERT_TRUE(Identite());
    EXPECT_EQ(Identite()->chemin, "/home/moi/disques.qrt");
    EXPECT_FALSE(Identite()->texte);
}

TEST_F(Secours, ChangesAreWrittenOnceTheUserPauses)
{
    Changer(u"Third"_s);
    Attendre(2);
    EXPECT_FALSE(TitreEcrit()) << "the first of them saw the change";
    Attendre(1);
    EXPECT_EQ(TitreEcrit(), u"Third"_s);
}

TEST_F(Secours, WhoeverKeepsWorkingIsNotDisturbed)
{
    for (int i = 0; i < 100; ++i) {
        Changer(QString::number(i));
        Attendre(1);
    }
    EXPECT_FALSE(TitreEcrit());
}

TEST_F(Secours, ATableThatStillChangesWaitsToo)
{
    Changer(u"a"_s);
    for (int i = 0; i < 10; ++i) {
        Attendre(1);
        fenetre.table.ListItems(1).SetText(QString::number(i));
    }
    EXPECT_FALSE(TitreEcrit()) << "an operation runs that nobody touches a key for";
}

TEST_F(Secours, CopiesComeAtMostEveryThirtySeconds)
{
    Changer(u"a"_s);
    Attendre(3);
    Changer(u"b"_s);
    Attendre(28);
    EXPECT_EQ(TitreEcrit(), u"a"_s);
    Attendre(2);
    EXPECT_EQ(TitreEcrit(), u"b"_s);
}

TEST_F(Secours, WhatHasNotChangedIsNotWrittenAgain)
{
    Changer(u"a"_s);
    Attendre(3);
    QFile::remove(FichierDeSecours(doc.TmpFolder));
    fenetre.table.Selectionner(1, 1, true);
    Attendre(100);
    EXPECT_FALSE(TitreEcrit());
    doc.dependantcol = 1;
    Attendre(3);
    EXPECT_EQ(TitreEcrit(), u"a"_s) << "the dependant column is a change";
    doc.SetCheminReel(u"/home/moi/autre.qrt"_s);
    Attendre(33);
    EXPECT_EQ(Identite()->chemin, "/home/moi/autre.qrt");
}

TEST_F(Secours, AChangeInTheMiddleOfACopyBeginsItAnew)
{
    for (int i = 0; i < 20000; ++i)
        fenetre.table.ListItems.Add(0, QString(), QString(200, u'x'));
    Changer(u"a"_s);
    moment.maintenant += 5000;
    fenetre.Secours.Avancer(doc, fenetre.Caption(), moment); // sees the table
    moment.maintenant += 5000;
    ASSERT_TRUE(fenetre.Secours.Avancer(doc, fenetre.Caption(), moment)) << "more than one step";

    fenetre.table.ListItems(1).SetText(u"b"_s);
    // The piece that the disk is busy with is let go once it is written.
    for (int i = 0; i < 5000 && !TitreEcrit(); ++i) {
        Attendre(1);
        QThread::msleep(1);
    }

    EXPECT_EQ(TitreEcrit(), u"b"_s);
    const QStringList reste = QDir(TempFolder).entryList({u"*~"_s});
    EXPECT_EQ(reste, QStringList());
}

TEST_F(Secours, ATouchInTheMiddleOfACopyHoldsItUp)
{
    for (int i = 0; i < 20000; ++i)
        fenetre.table.ListItems.Add(0, QString(), QString(200, u'x'));
    Changer(u"a"_s);
    moment.maintenant += 5000;
    fenetre.Secours.Avancer(doc, fenetre.Caption(), moment);
    moment.maintenant += 5000;
    ASSERT_TRUE(fenetre.Secours.Avancer(doc, fenetre.Caption(), moment));

    Toucher();
    EXPECT_FALSE(fenetre.Secours.Avancer(doc, fenetre.Caption(), moment));
    EXPECT_FALSE(TitreEcrit());
    Attendre(3);
    EXPECT_EQ(TitreEcrit(), u"a"_s);
}

TEST_F(Secours, ASavedDocumentKeepsNoCopy)
{
    Changer(u"a"_s);
    Attendre(3);
    ASSERT_TRUE(TitreEcrit());
    doc.IlFautSauver = false;
    Attendre(1);
    EXPECT_FALSE(TitreEcrit());
    EXPECT_FALSE(Identite()->texte);

    Changer(u"b"_s);
    Attendre(33);
    EXPECT_EQ(TitreEcrit(), u"b"_s) << "and is copied again after the next change";
}

TEST_F(Secours, ASavedDocumentKeepsItsCopyUntilTheFileIsOnTheDisk)
{
    Changer(u"a"_s);
    Attendre(3);
    // A disk that takes its time: who opens a pipe waits for the other end.
    const QString lent = PlateformeDeTest::Courante().dossier.Fichier(u"lent"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(lent).constData(), 0600), 0);
    doc.IlFautSauver = false;
    doc.AForcer = lent;
    Attendre(5);
    EXPECT_EQ(TitreEcrit(), u"a"_s);

    QFile autreBout(lent);
    ASSERT_TRUE(autreBout.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    for (int i = 0; i < 5000 && TitreEcrit(); ++i) {
        Attendre(1);
        QThread::msleep(1);
    }
    EXPECT_FALSE(TitreEcrit());
}

TEST_F(Secours, TheCopyStaysWhileASaveRuns)
{
    Changer(u"a"_s);
    Attendre(3);
    doc.IlFautSauver = false;
    doc.EnEcriture = true;
    Attendre(5);
    EXPECT_EQ(TitreEcrit(), u"a"_s);
    doc.EnEcriture = false;
    Attendre(1);
    EXPECT_FALSE(TitreEcrit());
}

TEST_F(Secours, ADocumentThatIsClosedLeavesNothing)
{
    Changer(u"a"_s);
    Attendre(3);
    fenetre.Decharger();
    Attendre(100);
    EXPECT_TRUE(QDir(TempFolder).isEmpty());
}

TEST_F(Secours, AFullDiskIsTriedAgainAndTheCopyBeforeStays)
{
    Changer(u"a"_s);
    Attendre(3);
    // Nothing can be made at the new copy's place.
    const QString place = FichierDeSecours(doc.TmpFolder) + u'~';
    ASSERT_TRUE(QDir().mkpath(place + u"/x"_s));
    Changer(u"b"_s);
    Attendre(65);
    EXPECT_EQ(TitreEcrit(), u"a"_s);
    QDir(place).removeRecursively();
    Attendre(31);
    EXPECT_EQ(TitreEcrit(), u"b"_s);
}

TEST_F(Secours, EveryDocumentHasACopyOfItsOwn)
{
    FenetreDeTest& autre = Nouvelle(u"livres.qrt"_s);
    Changer(u"a"_s);
    autre.table.ListItems(1).SetText(u"Nana"_s);
    autre.myqrt.IlFautSauver = true;
    Attendre(3);
    EXPECT_EQ(TitreEcrit(), u"a"_s);
    EXPECT_EQ(TitreEcrit(autre.myqrt), u"Nana"_s);
}

TEST_F(Secours, AtTheEndUnsavedChangesAreWrittenAtOnceAndSavedDocumentsGo)
{
    FenetreDeTest& sauvee = Nouvelle(u"livres.qrt"_s);
    const QString dossierSauve = sauvee.myqrt.TmpFolder;
    FenetreDeTest& gardee = Nouvelle(u"films.qrt"_s);
    gardee.myqrt.GarderDossier();
    Attendre(1);
    Changer(u"a"_s);

    LaisserAuSecours(cadre);

    EXPECT_EQ(TitreEcrit(), u"a"_s);
    EXPECT_TRUE(QFileInfo::exists(doc.TmpFolder));
    EXPECT_FALSE(QFileInfo::exists(dossierSauve));
    EXPECT_FALSE(QFileInfo::exists(FichierDeSecours(dossierSauve)));
    EXPECT_TRUE(QFileInfo::exists(gardee.myqrt.TmpFolder)) << "its data are nowhere else";
}

TEST_F(Secours, AtTheEndWhatWasSavedIsOnTheDiskBeforeItsFolderGoes)
{
    const QString dossier = doc.TmpFolder;
    doc.AForcer = u"/proc/self/stat"_s; // cannot be forced anywhere
    Categorie& autre = Nouvelle(u"films.qrt"_s).myqrt;
    const QString autreDossier = autre.TmpFolder;
    autre.AForcer = PlateformeDeTest::Courante().dossier.Ecrire(u"films.qrt"_s, "x");
    LaisserAuSecours(cadre);
    EXPECT_TRUE(QFileInfo::exists(dossier));
    EXPECT_FALSE(QFileInfo::exists(autreDossier));
}

TEST_F(Secours, TheEndFinishesACopyThatIsBeingWritten)
{
    for (int i = 0; i < 20000; ++i)
        fenetre.table.ListItems.Add(0, QString(), QString(200, u'x'));
    Changer(u"a"_s);
    moment.maintenant += 5000;
    fenetre.Secours.Avancer(doc, fenetre.Caption(), moment);
    moment.maintenant += 5000;
    ASSERT_TRUE(fenetre.Secours.Avancer(doc, fenetre.Caption(), moment));
    LaisserAuSecours(cadre);
    EXPECT_EQ(TitreEcrit(), u"a"_s);

    Changer(u"b"_s);
    EXPECT_TRUE(fenetre.Secours.EcrireMaintenant(doc, fenetre.Caption())) << "and does not mind the last one's age";
    EXPECT_EQ(TitreEcrit(), u"b"_s);
}

TEST_F(Secours, TheEndOfTheSessionAsksAsClosingDoes)
{
    FileDeReponses reponses;
    Changer(u"a"_s);
    reponses.Preparer(RepAnnuler);
    EXPECT_FALSE(PeutFinirLaSession(cadre, true));
    EXPECT_TRUE(doc.IlFautSauver);

    reponses.Preparer(RepNon);
    EXPECT_TRUE(PeutFinirLaSession(cadre, true));
    EXPECT_TRUE(PeutFermer(doc)) << "nobody is asked twice";
    EXPECT_EQ(reponses.Affiches().size(), 2);
}

TEST_F(Secours, TheEndOfTheSessionAsksWithTheWindowInFront)
{
    FileDeReponses reponses;
    const FenetreDocument& autre = Nouvelle(u"livres.qrt"_s);
    cadre.active = cadre.fenetres.back().get();
    Changer(u"a"_s);
    const FenetreDocument* devant = nullptr;
    reponses.AChaqueMessage = [&] { devant = cadre.active; };
    reponses.Preparer(RepAnnuler);
    EXPECT_EQ(cadre.active, &autre);
    EXPECT_FALSE(PeutFinirLaSession(cadre, true));
    EXPECT_EQ(devant, &fenetre);
}

TEST_F(Secours, ChangesGivenUpForAnEndThatDoesNotComeAreChangesAgain)
{
    FileDeReponses reponses;
    Nouvelle(u"livres.qrt"_s);
    Changer(u"a"_s);
    reponses.Preparer(RepNon);
    ASSERT_TRUE(PeutFinirLaSession(cadre, true));
    EXPECT_FALSE(doc.IlFautSauver);

    ReprendreLaSession(cadre);

    EXPECT_TRUE(doc.IlFautSauver);
    EXPECT_FALSE(cadre.fenetres.back()->myqrt.IlFautSauver) << "only those";
}

TEST_F(Secours, WhereNobodyCanBeAskedTheChangesAreWritten)
{
    Changer(u"a"_s);
    EXPECT_TRUE(PeutFinirLaSession(cadre, false));
    EXPECT_EQ(TitreEcrit(), u"a"_s);
    EXPECT_TRUE(doc.IlFautSauver);
}

// ---- changes that nobody is asked about, as a command's result was written over the flag

TEST_F(Secours, ChangesThatNobodyAsksAboutAreCopiedAllTheSame)
{
    Changer(u"neuf"_s);
    doc.EcraserIlFautSauver(false);
    EXPECT_FALSE(doc.IlFautSauver);
    Attendre(60);
    EXPECT_EQ(TitreEcrit(), u"neuf"_s);
    LaisserAuSecours(cadre);
    EXPECT_TRUE(QFileInfo::exists(doc.TmpFolder));
}

TEST_F(Secours, ACopyTellsAtOnceThatNobodyWillBeAsked)
{
    Changer(u"neuf"_s);
    Attendre(10);
    ASSERT_TRUE(Identite() && Identite()->texte);
    EXPECT_FALSE(Identite()->tus);
    doc.EcraserIlFautSauver(false);
    Attendre(3);
    EXPECT_TRUE(Identite()->tus) << "sooner than the next copy of changes";
    EXPECT_EQ(TitreEcrit(), u"neuf"_s);

    Changer(u"encore"_s);
    Attendre(10);
    EXPECT_EQ(TitreEcrit(), u"neuf"_s) << "not too often";
    Attendre(60);
    EXPECT_EQ(TitreEcrit(), u"encore"_s);
    EXPECT_FALSE(Identite()->tus) << "the user will be asked about this one, and all";
}

TEST_F(Secours, ChangesThatNobodyAsksAboutOutliveTheWindow)
{
    Changer(u"neuf"_s);
    doc.EcraserIlFautSauver(false);
    doc.EcraserIlFautSauver(false);
    const QString dossier = doc.TmpFolder;
    fenetre.Decharger();
    EXPECT_TRUE(QFileInfo::exists(dossier));
    EXPECT_TRUE(LireIdentite(FichierDeSecours(dossier))->tus);
    const auto texte = LireTexteDeSecours(FichierDeSecours(dossier));
    DocumentDeTest lu;
    ASSERT_TRUE(texte && ChargerTexteExact(lu.doc, *texte));
    EXPECT_EQ(lu.table.ListItems(1).Text(), u"neuf"_s);
}

TEST_F(Secours, WithoutChangesThereIsNothingToOutliveTheWindow)
{
    doc.EcraserIlFautSauver(false);
    doc.EcraserIlFautSauver(true);
    EXPECT_TRUE(doc.IlFautSauver);
    EXPECT_FALSE(doc.ChangementsTus);
    doc.IlFautSauver = false;
    const QString dossier = doc.TmpFolder;
    fenetre.Decharger();
    EXPECT_FALSE(QFileInfo::exists(dossier));
}

TEST_F(Secours, ChangesThatNobodyAskedAboutAreSavedWithTheOthers)
{
    const DossierDeTest disque;
    doc.SetCheminReel(disque.Fichier(u"disques.qrt"_s));
    for (const QString& type : {u"2"_s, u"1"_s}) {
        doc.FileType = type;
        Changer(u"neuf "_s + type);
        doc.EcraserIlFautSauver(false);
        ASSERT_TRUE(Enregistrer(doc, false, true));
        EXPECT_FALSE(doc.ChangementsTus) << type.toStdString();
    }
}

TEST_F(Secours, WhoGivesUpHisChangesGivesThoseUpToo)
{
    Changer(u"neuf"_s);
    doc.EcraserIlFautSauver(false);
    Changer(u"encore"_s);
    FileDeReponses reponses;
    reponses.Preparer(RepNon);
    EXPECT_TRUE(PeutFermer(doc));
    const QString dossier = doc.TmpFolder;
    fenetre.Decharger();
    EXPECT_FALSE(QFileInfo::exists(dossier));
}

TEST_F(Secours, AtTheEndOfTheSessionTooGivingUpIsGivingUpAll)
{
    Changer(u"neuf"_s);
    doc.EcraserIlFautSauver(false);
    Changer(u"encore"_s);
    FileDeReponses reponses;
    reponses.Preparer(RepNon);
    EXPECT_TRUE(PeutFinirLaSession(cadre, true));
    EXPECT_FALSE(doc.AChange());
}
