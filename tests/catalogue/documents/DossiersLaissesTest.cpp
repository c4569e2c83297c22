#include "catalogue/documents/DossiersLaisses.h"

#include "base/Const_Vrac.h"
#include "base/DossiersTemp.h"
#include "catalogue/documents/Commentaires.h"
#include "catalogue/documents/CopieDeSecours.h"
#include "catalogue/documents/Sauver.h"
#include "catalogue/texte/Categorie.h"
#include "support/ArchiveDeTest.h"
#include "support/CadreDeTest.h"
#include "support/FileDeFichiers.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"
#include "support/TableDeTest.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// Leaves folders as killed runs do: nobody holds them.
class Laisses : public testing::Test
{
protected:
    QString Temp(const QString& suite) const { return TempFolder + u'/' + suite; }

    static QByteArray Texte(const QList<QByteArray>& entrees)
    {
        TexteDeCatalogue texte;
        texte.entrees = entrees;
        return texte.Texte();
    }

    /// "temp/cat7" with a text, a comment and an image.
    void LaisserDossier()
    {
        dossier.Ecrire("temp/cat7/Zelvane.qrt", Texte({"Abbey Road||abbey.png", "Dummy||"}));
        dossier.Ecrire("temp/cat7/abbey.png", "image");
        ASSERT_TRUE(Commentaires::Ecrire(Temp("cat7/"), u"Écouté le 5 \u2014 Пётр"_s));
    }

    /// A rescue copy for "temp/cat7" with these titles.
    void LaisserCopie(std::initializer_list<QStringList> entrees)
    {
        Categorie doc;
        MyLV& table = doc.Table;
        doc.TmpFolder = Temp("cat7/");
        doc.SetCheminReel(u"/home/moi/disques.qrt"_s);
        MettreColonnes(table, {"Titre", "Prêté"});
        AjouterEntrees(table, entrees);
        EXPECT_EQ(EcritureDeSecours(doc, u"disques.qrt"_s).Achever(), EcritureDeSecours::Etat::Faite);
    }
    void LaisserIdentite()
    {
        Categorie doc;
        doc.TmpFolder = Temp("cat7/");
        doc.SetCheminReel(u"/home/moi/disques.qrt"_s);
        EXPECT_TRUE(EcrireIdentite(doc, u"disques.qrt"_s));
    }

    FenetreDeTest* Ouvrir()
    {
        const std::vector<DossierLaisse> laisses = ChercherLaisses();
        EXPECT_EQ(laisses.size(), 1);
        if (laisses.empty() || !OuvrirLaisse(cadre, laisses[0]))
            return nullptr;
        return cadre.fenetres.back().get();
    }
    bool RienNEstLaisse() const { return !dossier.Existe("temp/cat7") && !dossier.Existe("temp/cat7.secours"); }

    const DossierDeTest& dossier = PlateformeDeTest::Courante().dossier;
    FileDeReponses reponses;
    CadreDeTest cadre;
};

} // namespace

TEST_F(Laisses, WhatARunWithAnotherTemporaryFolderLeftIsFound)
{
    QDir(dossier.Chemin()).mkdir("ancien");
    QDir(dossier.Chemin()).mkdir("nouveau");
    EcrireOption("TempFolder", dossier.Fichier("ancien"));
    InitialiserTempFolder();
    dossier.Ecrire("ancien/cat7/Zelvane.qrt", Texte({"Abbey Road||"}));

    EcrireOption("TempFolder", dossier.Fichier("nouveau"));
    InitialiserTempFolder();

    FenetreDeTest* fenetre = Ouvrir();
    ASSERT_TRUE(fenetre);
    EXPECT_EQ(ColonneDe(fenetre->table, 1), QStringList{"Abbey Road"});
    EXPECT_FALSE(dossier.Existe("ancien/cat7"));
}

TEST_F(Laisses, WithoutAnyThereIsNothingToOffer)
{
    EXPECT_TRUE(ChercherLaisses().empty());
    QDir(TempFolder).removeRecursively();
    EXPECT_TRUE(ChercherLaisses().empty());
}

TEST_F(Laisses, AFolderIsFoundAndTold)
{
    LaisserDossier();
    LaisserIdentite();
    const std::vector<DossierLaisse> laisses = ChercherLaisses();
    ASSERT_EQ(laisses.size(), 1);
    EXPECT_EQ(laisses[0].nom, "disques.qrt");
    EXPECT_EQ(laisses[0].chemin, "/home/moi/disques.qrt");
    EXPECT_EQ(laisses[0].entrees, 2);
    EXPECT_FALSE(laisses[0].modifie);
    EXPECT_EQ(laisses[0].date,
              std::max(QFileInfo(Temp("cat7")).lastModified(), QFileInfo(Temp("cat7/Zelvane.qrt")).lastModified()));
}

TEST_F(Laisses, UnsavedChangesAreTold)
{
    LaisserDossier();
    LaisserCopie({{"a", ""}, {"b", ""}, {"c", ""}});
    const std::vector<DossierLaisse> laisses = ChercherLaisses();
    ASSERT_EQ(laisses.size(), 1);
    EXPECT_TRUE(laisses[0].modifie);
    EXPECT_EQ(laisses[0].entrees, 3);
    EXPECT_GE(laisses[0].date, QFileInfo(Temp("cat7.secours")).lastModified());
}

TEST_F(Laisses, AFolderThatNothingTellsAboutHasItsOwnName)
{
    dossier.Ecrire("temp/cat7/Zelvane.qrt", "a");
    const std::vector<DossierLaisse> laisses = ChercherLaisses();
    ASSERT_EQ(laisses.size(), 1);
    EXPECT_EQ(laisses[0].nom, "cat7");
    EXPECT_EQ(laisses[0].chemin, "");
    EXPECT_FALSE(laisses[0].entrees);
}

TEST_F(Laisses, ACategoryWhoseFileDoesNotStandIsTold)
{
    LaisserDossier();
    const auto enregistree = [this](const QString& chemin, const QString& type) {
        Categorie doc;
        doc.TmpFolder = Temp("cat7/");
        doc.SetCheminReel(chemin);
        doc.FileType = type;
        EXPECT_TRUE(EcrireIdentite(doc, u"disques.qrt"_s));
        const std::vector<DossierLaisse> laisses = ChercherLaisses();
        return laisses.size() == 1 && laisses[0].enregistree;
    };
    const QByteArray archive = FaireArchive({{"Zelvane.qrt", Texte({"a||"})}});
    EXPECT_TRUE(enregistree(dossier.Ecrire("disques.qrt", archive), u"2"_s));
    EXPECT_FALSE(enregistree(dossier.Ecrire("disques.qrt", archive.chopped(30)), u"2"_s)) << "half an archive";
    EXPECT_TRUE(enregistree(dossier.Ecrire("vieux.qrt", Texte({"a||"})), u"1"_s));
    EXPECT_FALSE(enregistree(dossier.Fichier("absent.qrt"), u"2"_s));
    EXPECT_FALSE(enregistree(QString(), QString())) << "never saved";
    EXPECT_TRUE(reponses.Affiches().isEmpty());
}

TEST_F(Laisses, TheLatestComesFirst)
{
    const QDateTime jour(QDate(2026, 1, 2), QTime(3, 4));
    for (const int numero : {7, 8, 9}) {
        const QString nom = u"temp/cat%1"_s.arg(numero);
        QFile fichier(dossier.Ecrire(nom + u"/Zelvane.qrt"_s, "x"));
        ASSERT_TRUE(fichier.open(QIODevice::ReadWrite));
        fichier.setFileTime(jour.addYears(numero == 8 ? 100 : 50 + numero), QFileDevice::FileModificationTime);
    }
    QStringList noms;
    for (const DossierLaisse& laisse : ChercherLaisses())
        noms.append(laisse.nom);
    EXPECT_EQ(noms, QStringList({"cat8", "cat9", "cat7"}));
}

TEST_F(Laisses, EmptyOnesAreCleanedAway)
{
    QDir().mkpath(Temp("cat7"));
    LaisserIdentite();
    QDir().mkpath(Temp("cat8"));
    dossier.Ecrire("temp/cat9.secours", "");
    dossier.Ecrire("temp/cat10.secours~", "half");
    EXPECT_TRUE(ChercherLaisses().empty());
    EXPECT_TRUE(QDir(TempFolder).isEmpty());
}

TEST_F(Laisses, OnlyFoldersOfDocumentsAreLookedAt)
{
    for (const char* nom :
         {"temp/cat/a", "temp/cat7x/a", "temp/xcat7/a", "temp/cli-12/cat7/a", "temp/cat7", "temp/mine"})
        dossier.Ecrire(nom, "x");
    EXPECT_TRUE(ChercherLaisses().empty());
    EXPECT_TRUE(dossier.Existe("temp/cli-12/cat7/a"));
    EXPECT_TRUE(dossier.Existe("temp/cat7"));
}

TEST_F(Laisses, TheDefaultPlaceIsLookedAtWhenTheSettingsNameAnotherOne)
{
    LaisserDossier();
    QDir().mkpath(dossier.Fichier("ailleurs"));
    TempFolder = dossier.Fichier("ailleurs");
    EXPECT_EQ(ChercherLaisses().size(), 1);
}

TEST_F(Laisses, TheCurrentFolderIsNeverLookedAt)
{
    dossier.Ecrire("ici/cat7/mine", "x");
    QDir().mkpath(dossier.Fichier("ici/cat8"));
    const QString avant = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(dossier.Fichier("ici")));
    TempFolder = dossier.Fichier("absent");
    QDir(DossierProgramme() + u"temp"_s).removeRecursively();
    EXPECT_TRUE(ChercherLaisses().empty());
    EXPECT_TRUE(dossier.Existe("ici/cat8"));
    QDir::setCurrent(avant);
}

TEST_F(Laisses, AFolderOfALivingProcessIsNeverOffered)
{
    LaisserDossier();
    const std::optional<VerrouDossier> autreProcessus = VerrouDossier::Prendre(Temp("cat7"));
    EXPECT_TRUE(ChercherLaisses().empty());
}

TEST_F(Laisses, NorOneOfThisRun)
{
    const QString tenu = CreerDossierTemp();
    QFile fichier(tenu + u"Zelvane.qrt"_s);
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    EXPECT_TRUE(ChercherLaisses().empty());
}

TEST_F(Laisses, WhatIsOfferedIsHeldAgainstOtherStarts)
{
    LaisserDossier();
    std::vector<DossierLaisse> laisses = ChercherLaisses();
    EXPECT_TRUE(ChercherLaisses().empty()) << "another start's search";
    laisses.clear();
    EXPECT_EQ(ChercherLaisses().size(), 1) << "later again";
}

TEST_F(Laisses, ALinkIsNoFolder)
{
    dossier.Ecrire("precious/Zelvane.qrt", "x");
    ASSERT_TRUE(QFile::link(dossier.Fichier("precious"), Temp("cat7")));
    EXPECT_TRUE(ChercherLaisses().empty());
}

TEST_F(Laisses, AnotherUsersFolderIsLeftAlone)
{
    LaisserDossier();
    if (chown(QFile::encodeName(Temp("cat7")).constData(), 65534, 65534) != 0)
        GTEST_SKIP() << "only the superuser can give a folder away";
    EXPECT_TRUE(ChercherLaisses().empty());
}

TEST_F(Laisses, ACopyWhoseFolderIsGoneIsOffered)
{
    LaisserCopie({{"a", ""}});
    // Written by this process, which lives: the folder may have been taken away under its feet.
    EXPECT_TRUE(ChercherLaisses().empty());
    QByteArray copie = dossier.Lire("temp/cat7.secours");
    copie.replace("Processus=" + QByteArray::number(QCoreApplication::applicationPid()), "Processus=2147483646");
    dossier.Ecrire("temp/cat7.secours", copie);

    const FenetreDeTest* fenetre = Ouvrir();

    ASSERT_TRUE(fenetre);
    EXPECT_EQ(ColonneDe(fenetre->table, 1), QStringList({"a"}));
    EXPECT_TRUE(RienNEstLaisse());
}

TEST_F(Laisses, OneIsOpenedAsAnUnsavedDocumentWithImagesAndComments)
{
    LaisserDossier();
    LaisserIdentite();

    FenetreDeTest* fenetre = Ouvrir();

    ASSERT_TRUE(fenetre);
    const Categorie& doc = fenetre->myqrt;
    EXPECT_EQ(ColonneDe(fenetre->table, 1), QStringList({"Abbey Road", "Dummy"}));
    EXPECT_EQ(fenetre->table.ListItems(1).SmallIcon(), "ico");
    EXPECT_EQ(Commentaires::Lire(doc.TmpFolder), u"Écouté le 5 \u2014 Пётр"_s);
    EXPECT_TRUE(doc.IlFautSauver);
    EXPECT_EQ(doc.CheminReel(), "") << "saving asks where";
    EXPECT_EQ(doc.FileType, "");
    EXPECT_EQ(fenetre->Caption(), u"disques.qrt (récupéré)"_s);
    EXPECT_EQ(cadre.TitresDesOnglets(), QStringList(u"disques.qrt (récupéré)"_s));
    EXPECT_FALSE(fenetre->fOuvrir.visible);
    EXPECT_NE(doc.TmpFolder, Temp("cat7/"));
    EXPECT_TRUE(RienNEstLaisse());
}

TEST_F(Laisses, SavingProposesTheFileThatItCameFrom)
{
    LaisserDossier();
    LaisserIdentite();
    FenetreDeTest* fenetre = Ouvrir();
    ASSERT_TRUE(fenetre);
    FileDeFichiers dialogues;
    dialogues.PreparerAnnulation();
    EXPECT_FALSE(Enregistrer(fenetre->myqrt, false, true));
    EXPECT_EQ(dialogues.Demandes().last().depart, "/home/moi/disques.qrt");

    EcrireOption("SaveInitDir", "/ailleurs");
    dialogues.PreparerAnnulation();
    EXPECT_FALSE(Enregistrer(fenetre->myqrt, false, true));
    EXPECT_EQ(dialogues.Demandes().last().depart, "/ailleurs/disques.qrt")
        << "the start folder is that of the last one";

    dialogues.Preparer({dossier.Fichier("neuf.qrt")}, 2);
    EXPECT_TRUE(Enregistrer(fenetre->myqrt, false, true));
    EcrireOption("SaveInitDir", QString());
    dialogues.PreparerAnnulation();
    EXPECT_FALSE(Enregistrer(fenetre->myqrt, true, true));
    EXPECT_EQ(dialogues.Demandes().last().depart, dossier.Fichier("neuf.qrt")) << "it has a file of its own now";
}

TEST_F(Laisses, UnsavedChangesComeBackWithAllTheirCharacters)
{
    LaisserDossier();
    LaisserCopie({{u"Пётр и волк"_s, u"Ève"_s}, {"Dummy", ""}});

    FenetreDeTest* fenetre = Ouvrir();

    ASSERT_TRUE(fenetre);
    EXPECT_EQ(ColonneDe(fenetre->table, 1), QStringList({"Dummy", u"Пётр и волк"_s}));
    EXPECT_TRUE(QFile::exists(fenetre->myqrt.TmpFolder + u"abbey.png"_s));
    QFile texte(fenetre->myqrt.TmpFolder + u"Zelvane.qrt"_s);
    ASSERT_TRUE(texte.open(QIODevice::ReadOnly));
    EXPECT_EQ(texte.readAll(), Texte({"Abbey Road||abbey.png", "Dummy||"})) << "what was saved stays so for a search";
    EXPECT_TRUE(RienNEstLaisse());
}

TEST_F(Laisses, AfterTheOpeningTheChangesAreSafeFromTheFirstMomentOn)
{
    LaisserDossier();
    LaisserCopie({{"a", ""}, {"b", ""}, {"c", ""}});
    const FenetreDeTest* fenetre = Ouvrir();
    ASSERT_TRUE(fenetre);
    const auto texte = LireTexteDeSecours(FichierDeSecours(fenetre->myqrt.TmpFolder));
    ASSERT_TRUE(texte);
    EXPECT_TRUE(texte->contains("It3=c||"));
    EXPECT_EQ(LireIdentite(FichierDeSecours(fenetre->myqrt.TmpFolder))->base,
              EmpreinteDuTexte(fenetre->myqrt.TmpFolder))
        << "and would be found again";
}

TEST_F(Laisses, TheChangesAreSafeAlsoWhileTheCommentsAreRead)
{
    LaisserDossier();
    LaisserCopie({{"a", ""}, {"b", ""}, {"c", ""}});
    bool lus = false;
    cadre.auxCommentaires = [&lus](FenetreDeTest& fenetre) {
        fenetre.Secours.Avancer(fenetre.myqrt, fenetre.Caption(), {.maintenant = 1});
        const auto texte = LireTexteDeSecours(FichierDeSecours(fenetre.myqrt.TmpFolder));
        lus = texte && texte->contains("It3=c||");
    };
    ASSERT_TRUE(Ouvrir());
    EXPECT_TRUE(lus);
}

TEST_F(Laisses, AnotherDiskTakesTheRescueCopyOverToo)
{
    LaisserDossier();
    LaisserCopie({{"a", ""}, {"b", ""}, {"c", ""}});
    const QTemporaryDir autreDisque(u"/dev/shm/zelvane-test-XXXXXX"_s);
    TempFolder = autreDisque.path();
    const FenetreDeTest* fenetre = Ouvrir();
    ASSERT_TRUE(fenetre);
    EXPECT_FALSE(dossier.Existe("temp/cat7.secours")) << "or it would be offered again";
    const std::optional<IdentiteDeSecours> identite = LireIdentite(FichierDeSecours(fenetre->myqrt.TmpFolder));
    ASSERT_TRUE(identite && identite->texte);
    EXPECT_EQ(identite->base, EmpreinteDuTexte(fenetre->myqrt.TmpFolder)) << "and would be found again";
}

TEST_F(Laisses, ACopyThatWasSavedSinceIsOfNoInterest)
{
    LaisserDossier();
    LaisserCopie({{"old", ""}});
    dossier.Ecrire("temp/cat7/Zelvane.qrt", Texte({"saved later||"}));
    const FenetreDeTest* fenetre = Ouvrir();
    ASSERT_TRUE(fenetre);
    EXPECT_EQ(ColonneDe(fenetre->table, 1), QStringList({"saved later"}));
}

TEST_F(Laisses, ACategoryThatWasNeverSavedComesBack)
{
    QDir().mkpath(Temp("cat7"));
    LaisserCopie({{"new", ""}});
    const FenetreDeTest* fenetre = Ouvrir();
    ASSERT_TRUE(fenetre);
    EXPECT_EQ(ColonneDe(fenetre->table, 1), QStringList({"new"}));
    EXPECT_TRUE(RienNEstLaisse());
}

TEST_F(Laisses, TheMarkIsPutBehindANameOnce)
{
    LaisserDossier();
    Categorie doc;
    doc.TmpFolder = Temp("cat7/");
    EcrireIdentite(doc, u"disques.qrt (récupéré)"_s);
    ASSERT_TRUE(Ouvrir());
    EXPECT_EQ(cadre.active->Caption(), u"disques.qrt (récupéré)"_s);
}

TEST_F(Laisses, OneThatCannotBeReadIsToldAndStays)
{
    dossier.Ecrire("temp/cat7/Zelvane.qrt", "\x01\x02 rubbish");
    dossier.Ecrire("temp/cat7/abbey.png", "image");
    EXPECT_FALSE(Ouvrir());
    EXPECT_EQ(reponses.Cles(), QStringList({"msgSecoursIllisible"}));
    EXPECT_TRUE(reponses.Affiches()[0].message.texte.endsWith(u"/temp/cat7/"_s));
    EXPECT_TRUE(cadre.fenetres.empty());
    EXPECT_EQ(dossier.Lire("temp/cat7/abbey.png"), "image");
    EXPECT_EQ(QDir(TempFolder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList({"cat7"}));
}

TEST_F(Laisses, ACopyThatCannotBeReadAloneStaysToo)
{
    dossier.Ecrire("temp/cat7.secours", "[Zelvane.secours]\r\nNom=a");
    EXPECT_FALSE(Ouvrir());
    EXPECT_EQ(reponses.Cles(), QStringList({"msgSecoursIllisible"}));
    EXPECT_TRUE(dossier.Existe("temp/cat7.secours"));
}

TEST_F(Laisses, SpoiltChangesAreToldAndTheSavedTextIsOpened)
{
    LaisserDossier();
    LaisserCopie({{"a", ""}});
    QByteArray copie = dossier.Lire("temp/cat7.secours");
    copie.replace("Type=QRT FILE", "Type=QRT fILE");
    dossier.Ecrire("temp/cat7.secours", copie);

    const FenetreDeTest* fenetre = Ouvrir();

    ASSERT_TRUE(fenetre);
    EXPECT_EQ(reponses.Cles(), QStringList({"msgSecoursAncien"}));
    EXPECT_EQ(ColonneDe(fenetre->table, 1), QStringList({"Abbey Road", "Dummy"}));
    EXPECT_EQ(dossier.Lire("temp/cat7.secours"), copie) << "until it is thrown away";
    EXPECT_EQ(dossier.Lire("temp/cat7/abbey.png"), "image");
}

TEST_F(Laisses, ACopyThatCannotBeReadAtAllMayHoldChangesAndStays)
{
    LaisserDossier();
    LaisserCopie({{"modifié", ""}});
    QByteArray copie = dossier.Lire("temp/cat7.secours");
    copie.chop(3);
    dossier.Ecrire("temp/cat7.secours", copie);
    ASSERT_NE(Ouvrir(), nullptr);
    EXPECT_EQ(reponses.Cles(), QStringList({"msgSecoursAncien"}));
    EXPECT_TRUE(dossier.Existe("temp/cat7/Zelvane.qrt"));
    EXPECT_EQ(dossier.Lire("temp/cat7.secours"), copie);
}

TEST_F(Laisses, ASpoiltTextIsReplacedByTheCopyBeforeIt)
{
    LaisserDossier();
    LaisserCopie({{"a", ""}});
    dossier.Ecrire("temp/cat7/Zelvane.qrt", "");
    const FenetreDeTest* fenetre = Ouvrir();
    ASSERT_TRUE(fenetre);
    EXPECT_EQ(ColonneDe(fenetre->table, 1), QStringList({"a"}));
}

TEST_F(Laisses, FilesThatCannotBeCopiedAreToldAndItStays)
{
    LaisserDossier();
    // No folder can be made for the new document.
    const std::vector<DossierLaisse> laisses = ChercherLaisses();
    TempFolder = dossier.Ecrire("a file", "x");

    EXPECT_FALSE(OuvrirLaisse(cadre, laisses[0]));

    EXPECT_EQ(reponses.Cles(), QStringList({"msgSecoursCopie"}));
    EXPECT_TRUE(cadre.fenetres.empty());
    EXPECT_EQ(dossier.Lire("temp/cat7/abbey.png"), "image");
}

TEST_F(Laisses, LinksAndHalfWrittenTextsInItDoNotTravel)
{
    LaisserDossier();
    dossier.Ecrire("temp/cat7/Zelvane.qrt~", "half");
    dossier.Ecrire("temp/cat7/sub/file", "x");
    dossier.Ecrire("photo", "x");
    ASSERT_TRUE(QFile::link(dossier.Fichier("photo"), Temp("cat7/photo.png")));
    ASSERT_TRUE(QFile::link(dossier.Fichier("none"), Temp("cat7/none.png")));

    const FenetreDeTest* fenetre = Ouvrir();

    ASSERT_TRUE(fenetre);
    QStringList noms = QDir(fenetre->myqrt.TmpFolder).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
    noms.sort();
    EXPECT_EQ(noms, QStringList({"Zelvane.qrt", "Zelvane.txt", "Zelvane.utf8", "abbey.png", "photo.png"}));
    EXPECT_FALSE(QFileInfo(fenetre->myqrt.TmpFolder + u"photo.png"_s).isSymLink());
    EXPECT_TRUE(dossier.Existe("photo"));
}

TEST_F(Laisses, OneThatIsThrownAwayIsGone)
{
    LaisserDossier();
    LaisserCopie({{"a", ""}});
    for (const DossierLaisse& laisse : ChercherLaisses())
        JeterLaisse(laisse);
    EXPECT_TRUE(RienNEstLaisse());
    EXPECT_TRUE(ChercherLaisses().empty());
}

TEST_F(Laisses, TheViewIsThatOfAnyDocument)
{
    LaisserDossier();
    EcrireOption("AffImg", "0");
    const FenetreDeTest* fenetre = Ouvrir();
    ASSERT_TRUE(fenetre);
    EXPECT_FALSE(fenetre->images);
}
