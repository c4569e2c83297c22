#include "catalogue/documents/OuvrirFichiersQrt.h"

#include "base/Const_Vrac.h"
#include "base/DossiersTemp.h"
#include "base/Options.h"
#include "support/ArchiveDeTest.h"
#include "support/CadreDeTest.h"
#include "support/FileDeFichiers.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/TableDeTest.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <gtest/gtest.h>

#include <algorithm>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

class OuvrirFichierTest : public testing::Test
{
protected:
    OuvrirFichierTest() { texte.entrees = {"Abbey Road|", "Dummy|"}; }

    bool Ouvrir(const QString& chemin, int type = TypeQrt2, bool messages = true)
    {
        return OuvrirFichier(cadre, chemin, type, messages);
    }
    QString FichierTexte(const QString& nom) { return dossier.Ecrire(nom, texte.Texte()); }
    /// An archive of the text and of one image, "abbey.jpg".
    QString FichierArchive(const QString& nom)
    {
        return dossier.Ecrire(nom, FaireArchive({{"Zelvane.qrt", texte.Texte()}, {"abbey.jpg", "JFIF"}}));
    }
    /// Another archive at each call, with these comments.
    QString FichierCommente(const QByteArray& commentaires)
    {
        return dossier.Ecrire(u"commente%1.qrt"_s.arg(cadre.creees),
                              FaireArchive({{"Zelvane.qrt", texte.Texte()}, {"Zelvane.txt", commentaires}}));
    }
    FenetreDeTest& Derniere() { return *cadre.fenetres.back(); }

    DossierDeTest dossier;
    TexteDeCatalogue texte;
    FileDeReponses reponses;
    CadreDeTest cadre;
};

} // namespace

TEST_F(OuvrirFichierTest, ABareTextOpensInAWindowOfItsOwn)
{
    const QString chemin = FichierTexte(u"disques.qrt"_s);
    ASSERT_TRUE(Ouvrir(chemin));
    ASSERT_EQ(cadre.fenetres.size(), 1);
    const Categorie& doc = Derniere().myqrt;
    EXPECT_EQ(Derniere().Caption(), "disques.qrt");
    EXPECT_EQ(doc.CheminReel(), chemin);
    EXPECT_EQ(doc.filename(), "disques.qrt");
    EXPECT_EQ(doc.FileType, "1");
    EXPECT_EQ(ColonneDe(Derniere().table, 1), QStringList({"Abbey Road", "Dummy"}));
    EXPECT_TRUE(reponses.Affiches().isEmpty());
}

TEST_F(OuvrirFichierTest, TheTextLiesInTheDocumentsFolder)
{
    ASSERT_TRUE(Ouvrir(FichierTexte(u"disques.qrt"_s)));
    QFile copie(Derniere().myqrt.TmpFolder + u"Zelvane.qrt"_s);
    ASSERT_TRUE(copie.open(QIODevice::ReadOnly));
    EXPECT_EQ(copie.readAll(), texte.Texte());
}

TEST_F(OuvrirFichierTest, TheLoadingPanelIsHiddenAtTheEnd)
{
    ASSERT_TRUE(Ouvrir(FichierTexte(u"disques.qrt"_s)));
    EXPECT_FALSE(Derniere().fOuvrir.visible);
}

TEST_F(OuvrirFichierTest, TheImagesPanelIsHiddenUnlessTheSettingKeepsIt)
{
    ASSERT_TRUE(Ouvrir(FichierTexte(u"a.qrt"_s)));
    EXPECT_FALSE(Derniere().images);
    EcrireOption(u"AffImg"_s, u"0"_s);
    ASSERT_TRUE(Ouvrir(FichierTexte(u"b.qrt"_s)));
    EXPECT_FALSE(Derniere().images);
    EcrireOption(u"AffImg"_s, u"1"_s);
    ASSERT_TRUE(Ouvrir(FichierTexte(u"c.qrt"_s)));
    EXPECT_TRUE(Derniere().images);
}

TEST_F(OuvrirFichierTest, ALoanColumnThatTheReaderAddsIsNoUnsavedChange)
{
    texte.colonnes = {"Titre|1000|"};
    ASSERT_TRUE(Ouvrir(FichierTexte(u"disques.qrt"_s)));
    EXPECT_EQ(Derniere().myqrt.ColCount(), 2);
    EXPECT_FALSE(Derniere().myqrt.IlFautSauver);
}

TEST_F(OuvrirFichierTest, TheCopyOfAProtectedFileCanBeWritten)
{
    const QString chemin = FichierTexte(u"disques.qrt"_s);
    QFile::setPermissions(chemin, QFile::ReadOwner);
    ASSERT_TRUE(Ouvrir(chemin));
    EXPECT_TRUE(QFile::permissions(Derniere().myqrt.TmpFolder + u"Zelvane.qrt"_s) & QFile::WriteOwner);
    EXPECT_FALSE(QFile::permissions(chemin) & QFile::WriteOwner);
}

TEST_F(OuvrirFichierTest, AnOpenFileIsToldAndComesToTheFront)
{
    const QString chemin = FichierTexte(u"a.qrt"_s);
    ASSERT_TRUE(Ouvrir(chemin));
    ASSERT_TRUE(Ouvrir(FichierTexte(u"b.qrt"_s)));
    EXPECT_FALSE(Ouvrir(chemin));
    ASSERT_EQ(reponses.Cles(), QStringList({"msg48"}));
    EXPECT_EQ(reponses.Affiches()[0].message.texte, u"Le fichier est deja ouvert :\n"_s + chemin);
    EXPECT_EQ(reponses.Affiches()[0].genre, MsgOk);
    EXPECT_EQ(cadre.fenetres.size(), 2);
    EXPECT_EQ(cadre.active, cadre.fenetres[0].get());
}

TEST_F(OuvrirFichierTest, AnOpenFileComesToTheFrontAlsoWithoutMessages)
{
    const QString chemin = FichierTexte(u"a.qrt"_s);
    ASSERT_TRUE(Ouvrir(chemin));
    ASSERT_TRUE(Ouvrir(FichierTexte(u"b.qrt"_s)));
    EXPECT_FALSE(Ouvrir(chemin, TypeQrt2, false));
    EXPECT_TRUE(reponses.Affiches().isEmpty());
    EXPECT_EQ(cadre.active, cadre.fenetres[0].get());
}

TEST_F(OuvrirFichierTest, AnotherSpellingOfThePathOpensASecondWindow)
{
    FichierTexte(u"a.qrt"_s);
    ASSERT_TRUE(Ouvrir(dossier.Chemin() + u"a.qrt"_s));
    EXPECT_TRUE(Ouvrir(dossier.Chemin() + u"./a.qrt"_s));
    EXPECT_EQ(cadre.fenetres.size(), 2);
    EXPECT_NE(cadre.fenetres[0]->myqrt.TmpFolder, cadre.fenetres[1]->myqrt.TmpFolder);
}

TEST_F(OuvrirFichierTest, AFileThatIsNotThereIsTold)
{
    EXPECT_FALSE(Ouvrir(dossier.Fichier(u"nulle-part.qrt"_s)));
    EXPECT_FALSE(Ouvrir(QString(), TypeQrt2, false));
    EXPECT_EQ(reponses.Cles(), QStringList({"msg49", "msg49"}));
    EXPECT_EQ(reponses.Affiches()[0].message.texte, "Erreur lors de l'ouverture : le fichier n'existe pas");
    EXPECT_EQ(cadre.creees, 0);
}

TEST_F(OuvrirFichierTest, WhatIsThereAndNoFileIsToldAsWhatItIs)
{
    const QString tube = dossier.Fichier(u"tube.qrt"_s);
    ASSERT_EQ(mkfifo(tube.toUtf8().constData(), 0600), 0);
    EcrireOption("FRecent1", dossier.Chemin());
    EXPECT_FALSE(Ouvrir(dossier.Chemin()));
    EXPECT_FALSE(Ouvrir(tube)) << "nobody writes into it: it must not be waited for";
    EXPECT_FALSE(Ouvrir(u"/dev/null"_s));
    EXPECT_EQ(reponses.Cles(), QStringList({"msgDossier", "msgTube", "msgTube"}));
    EXPECT_EQ(reponses.Affiches()[0].message.texte, "Erreur lors de l'ouverture : c'est un dossier, pas un fichier");
    EXPECT_EQ(LireOption("FRecent1", {}).toString(), dossier.Chemin()) << "something is there";
    EXPECT_EQ(cadre.creees, 0);
}

TEST_F(OuvrirFichierTest, AnOpenedFileIsTheMostRecentOne)
{
    const QString a = FichierTexte(u"a.qrt"_s);
    const QString b = FichierTexte(u"b.qrt"_s);
    ASSERT_TRUE(Ouvrir(a));
    ASSERT_TRUE(Ouvrir(b));
    EXPECT_EQ(LireOption(u"FRecent1"_s, QString()).toString(), b);
    EXPECT_EQ(LireOption(u"FRecent2"_s, QString()).toString(), a);
}

TEST_F(OuvrirFichierTest, AFileThatIsGoneLeavesTheRecentOnes)
{
    const QString chemin = dossier.Fichier(u"partie.qrt"_s);
    EcrireOption(u"FRecent1"_s, chemin);
    EXPECT_FALSE(Ouvrir(chemin));
    EXPECT_EQ(LireOption(u"FRecent1"_s, QString()).toString(), QString());
}

TEST_F(OuvrirFichierTest, AFileThatDoesNotOpenIsNotRemembered)
{
    EXPECT_FALSE(Ouvrir(dossier.Ecrire(u"photo.qrt"_s, "JFIF....")));
    EXPECT_FALSE(
        Ouvrir(dossier.Ecrire(u"abime.qrt"_s, FaireArchive({{.nom = "Zelvane.qrt", .contenu = "x", .crc = 1}}))));
    EXPECT_EQ(LireOption(u"FRecent1"_s, QString()).toString(), QString());
}

TEST_F(OuvrirFichierTest, AFileThatIsNoCatalogueMakesNoWindow)
{
    EXPECT_FALSE(Ouvrir(dossier.Ecrire(u"photo.qrt"_s, "JFIF....")));
    EXPECT_FALSE(Ouvrir(dossier.Ecrire(u"vide.qrt"_s, ""), TypeQrt14, false));
    EXPECT_EQ(reponses.Cles(), QStringList({"msg50", "msg50"}));
    EXPECT_EQ(reponses.Affiches()[0].message.texte,
              "Erreur lors de l'ouverture : le fichier n'est pas un fichier qrt correcte");
    EXPECT_EQ(cadre.creees, 0);
}

TEST_F(OuvrirFichierTest, AWrongTypeLineLeavesAnEmptyDocumentOpen)
{
    const QString chemin = dossier.Ecrire(u"faux.qrt"_s, "[FileInfo]\r\nType=AUTRE FILE\r\n");
    EXPECT_TRUE(Ouvrir(chemin));
    ASSERT_EQ(reponses.Cles(), QStringList({"msg50"}));
    EXPECT_TRUE(reponses.Affiches()[0].message.texte.endsWith("valide"_L1));
    ASSERT_EQ(cadre.fenetres.size(), 1);
    EXPECT_EQ(Derniere().myqrt.CheminReel(), chemin);
    EXPECT_EQ(Derniere().myqrt.ItemsCount(), 0);
    EXPECT_EQ(Derniere().myqrt.ColCount(), 0);
    EXPECT_EQ(LireOption(u"FRecent1"_s, QString()).toString(), chemin) << "it has been opened";
    EXPECT_FALSE(Derniere().fOuvrir.visible);
}

TEST_F(OuvrirFichierTest, ATextThatCannotBeCopiedClosesItsWindow)
{
    const QString chemin = FichierTexte(u"a.qrt"_s);
    TempFolder = dossier.Ecrire(u"pas-un-dossier"_s, "x");
    EXPECT_FALSE(Ouvrir(chemin));
    EXPECT_EQ(reponses.Cles(), QStringList({"msg51"}));
    EXPECT_EQ(cadre.creees, 1);
    EXPECT_TRUE(cadre.fenetres.empty());
}

TEST_F(OuvrirFichierTest, ATypeThatNoPluginOffersOpensNothing)
{
    EXPECT_FALSE(Ouvrir(FichierTexte(u"a.qrt"_s), PremierTypePlugIn));
    EXPECT_EQ(cadre.creees, 0);
}

TEST_F(OuvrirFichierTest, AnArchiveOpensWithItsImages)
{
    texte.entrees = {"Abbey Road||abbey.jpg", "Dummy||perdue.jpg"};
    ASSERT_TRUE(Ouvrir(FichierArchive(u"disques.qrt"_s)));
    EXPECT_EQ(Derniere().myqrt.FileType, "2");
    EXPECT_TRUE(QFileInfo::exists(Derniere().myqrt.TmpFolder + u"abbey.jpg"_s));
    EXPECT_EQ(Derniere().table.ListItems(1).SmallIcon(), "ico");
    EXPECT_EQ(Derniere().table.ListItems(2).SmallIcon(), "icoerror");
    EXPECT_TRUE(reponses.Affiches().isEmpty());
}

TEST_F(OuvrirFichierTest, TheChosenTypeDoesNotDecideTheForm)
{
    ASSERT_TRUE(Ouvrir(FichierTexte(u"a.qrt"_s), TypeQrt2));
    ASSERT_TRUE(Ouvrir(FichierArchive(u"b.qrt"_s), TypeQrt14));
    EXPECT_EQ(cadre.fenetres[0]->myqrt.FileType, "1");
    EXPECT_EQ(cadre.fenetres[1]->myqrt.FileType, "2");
}

TEST_F(OuvrirFichierTest, AnArchiveThatIsNotWantedForItsSizeLeavesNothing)
{
    constexpr uint64_t troisGo = uint64_t(3) << 30;
    if (QStorageInfo(dossier.Chemin()).bytesAvailable() < static_cast<qint64>(troisGo + troisGo / 2))
        GTEST_SKIP() << "the disk has no room for what the archive announces";
    reponses.Preparer(RepNon);
    EXPECT_FALSE(
        Ouvrir(dossier.Ecrire(u"enorme.qrt"_s, FaireArchive({{"Zelvane.qrt", texte.Texte()},
                                                             {.nom = "a", .contenu = "", .taille = troisGo}}))));
    EXPECT_EQ(reponses.Cles(), QStringList({"msgVolume"})) << "no other message";
    EXPECT_EQ(cadre.creees, 1);
    EXPECT_TRUE(cadre.fenetres.empty());
    EXPECT_TRUE(cadre.onglets.isEmpty());
    EXPECT_TRUE(QDir(TempFolder).isEmpty());
}

TEST_F(OuvrirFichierTest, ANameThatNoFileCanHaveIsToldAndTheCategoryOpens)
{
    const QByteArray nom = QByteArray(300, 'L') + ".jpg";
    texte.entrees = {"Abbey Road||" + nom};
    ASSERT_TRUE(Ouvrir(dossier.Ecrire(u"long.qrt"_s, FaireArchive({{"Zelvane.qrt", texte.Texte()}, {nom, "JFIF"}}))));
    EXPECT_EQ(reponses.Cles(), QStringList({"msgNoms"}));
    EXPECT_EQ(Derniere().table.ListItems(1).SmallIcon(), "ico");
    EXPECT_FALSE(Derniere().myqrt.IlFautSauver);
}

TEST_F(OuvrirFichierTest, AnArchiveThatCannotBeExtractedTakesWindowTabAndFolderAway)
{
    const QByteArray archive = FaireArchive({{.nom = "Zelvane.qrt", .contenu = texte.Texte(), .crc = 1}});
    EXPECT_FALSE(Ouvrir(dossier.Ecrire(u"abime.qrt"_s, archive)));
    EXPECT_EQ(reponses.Cles(), QStringList({"msg52"}));
    EXPECT_EQ(cadre.creees, 1);
    EXPECT_TRUE(cadre.fenetres.empty());
    EXPECT_TRUE(cadre.onglets.isEmpty());
    EXPECT_TRUE(QDir(TempFolder).isEmpty());
}

TEST_F(OuvrirFichierTest, ALockedArchiveOpensWithItsPassword)
{
    reponses.PreparerMotDePasse(u"zelvane"_s);
    ASSERT_TRUE(Ouvrir(QStringLiteral(ZELVANE_EXEMPLES "/protege.qrt")));
    EXPECT_GT(Derniere().myqrt.ItemsCount(), 0);
    EXPECT_EQ(reponses.QuestionsDeMotDePasse(), 1);
}

TEST_F(OuvrirFichierTest, ALockedArchiveWithoutAPasswordDoesNotOpen)
{
    reponses.PreparerMotDePasse(QString());
    EXPECT_FALSE(Ouvrir(QStringLiteral(ZELVANE_EXEMPLES "/protege.qrt")));
    EXPECT_EQ(reponses.Cles(), QStringList({"msg52"}));
    EXPECT_TRUE(cadre.fenetres.empty());
}

// ---- comments

TEST_F(OuvrirFichierTest, CommentsAreShownOnceTheWindowIsWhole)
{
    int entrees = 0;
    QString premierRecent;
    bool chargement = false;
    cadre.auxCommentaires = [&](FenetreDeTest& fenetre) {
        entrees = fenetre.myqrt.ItemsCount();
        premierRecent = LireOption(u"FRecent1"_s, {}).toString();
        chargement = fenetre.fOuvrir.visible && !fenetre.images;
    };
    const QString chemin = FichierCommente("Mes disques");
    ASSERT_TRUE(Ouvrir(chemin));
    EXPECT_EQ(Derniere().commandes, QStringList({"mModifierCommentaires"}));
    EXPECT_EQ(entrees, 2);
    EXPECT_EQ(premierRecent, chemin);
    EXPECT_TRUE(chargement) << "the panel goes last, the images panel before";
    EXPECT_FALSE(Derniere().fOuvrir.visible);
}

TEST_F(OuvrirFichierTest, CommentsAreShownAlsoWithoutMessages)
{
    ASSERT_TRUE(Ouvrir(FichierCommente("Mes disques"), TypeQrt2, false));
    EXPECT_EQ(Derniere().commandes.size(), 1);
}

TEST_F(OuvrirFichierTest, WithoutCommentsNoneAreShown)
{
    ASSERT_TRUE(Ouvrir(FichierArchive(u"a.qrt"_s)));
    EXPECT_TRUE(Derniere().commandes.isEmpty());
    ASSERT_TRUE(Ouvrir(FichierTexte(u"b.qrt"_s)));
    EXPECT_TRUE(Derniere().commandes.isEmpty()) << "a bare text has none";
}

TEST_F(OuvrirFichierTest, OneEmptyLineIsNoComment)
{
    ASSERT_TRUE(Ouvrir(FichierCommente("\r\n")));
    EXPECT_TRUE(Derniere().commandes.isEmpty());
    ASSERT_TRUE(Ouvrir(FichierCommente("\r\n\r\n")));
    EXPECT_EQ(Derniere().commandes.size(), 1) << "two are";
}

TEST_F(OuvrirFichierTest, TheSettingKeepsTheCommentsAway)
{
    for (const char* valeur : {"0", "2", "oui", ""}) {
        EcrireOption(u"commentAtStartup"_s, QString::fromLatin1(valeur));
        ASSERT_TRUE(Ouvrir(FichierCommente("Mes disques")));
        EXPECT_TRUE(Derniere().commandes.isEmpty()) << valeur;
    }
    EcrireOption(u"commentAtStartup"_s, u"1,0"_s);
    ASSERT_TRUE(Ouvrir(FichierCommente("Mes disques")));
    EXPECT_EQ(Derniere().commandes.size(), 1) << "the number 1";
}

TEST_F(OuvrirFichierTest, CommentsChangedWhileOpeningAreNoUnsavedChange)
{
    cadre.auxCommentaires = [](FenetreDeTest& fenetre) { fenetre.myqrt.IlFautSauver = true; };
    ASSERT_TRUE(Ouvrir(FichierCommente("Mes disques")));
    EXPECT_EQ(Derniere().commandes.size(), 1);
    EXPECT_FALSE(Derniere().myqrt.IlFautSauver);
}

TEST_F(OuvrirFichierTest, AWindowGetsATabUnderItsKey)
{
    ASSERT_TRUE(Ouvrir(FichierTexte(u"disques.qrt"_s)));
    EXPECT_EQ(cadre.onglets, QList<CadreDeTest::Onglet>({{Derniere().Tag, u"disques.qrt"_s}}));
}

namespace {

class OuvrirDialogueTest : public OuvrirFichierTest
{
protected:
    QStringList Titres() const
    {
        QStringList titres;
        for (const auto& fenetre : cadre.fenetres)
            titres.append(fenetre->Caption());
        return titres;
    }

    FileDeFichiers dialogues;
};

} // namespace

TEST_F(OuvrirDialogueTest, TheDialogOffersTheTypesAndSeveralFiles)
{
    dialogues.PreparerAnnulation();
    OuvrirDialogue(cadre);
    ASSERT_EQ(dialogues.Demandes().size(), 1);
    const DemandeFichier& demande = dialogues.Demandes().first();
    EXPECT_EQ(demande.titre, "Ouvrir une Categorie");
    EXPECT_EQ(demande.depart, "");
    EXPECT_TRUE(demande.plusieurs);
    EXPECT_EQ(demande.type, 2);
    ASSERT_EQ(demande.types.size(), 3);
    EXPECT_EQ(demande.types[0].libelle + demande.types[0].motifs, "(*.*)*.*");
    EXPECT_EQ(demande.types[1].libelle + demande.types[1].motifs, "Zelvane 2/1.5*.qrt");
    EXPECT_EQ(demande.types[2].libelle + demande.types[2].motifs, "Zelvane 1.4*.qrt");
}

TEST_F(OuvrirDialogueTest, TheListOfPlugInsIsMadeAnew)
{
    PlugIns = {u"Ancien"_s, QString()};
    dialogues.PreparerAnnulation();
    OuvrirDialogue(cadre);
    EXPECT_EQ(PlugIns, QStringList{QString()});
}

TEST_F(OuvrirDialogueTest, CancellingChangesNothing)
{
    EcrireOption(u"OpenInitDir"_s, u"/ailleurs/"_s);
    dialogues.PreparerAnnulation();
    OuvrirDialogue(cadre);
    EXPECT_TRUE(cadre.fenetres.empty());
    EXPECT_TRUE(reponses.Affiches().isEmpty());
    EXPECT_EQ(LireOption(u"OpenInitDir"_s, {}), u"/ailleurs/"_s);
}

TEST_F(OuvrirDialogueTest, TheChosenFileOpensAndItsFolderIsRemembered)
{
    dialogues.Preparer({FichierTexte(u"disques.qrt"_s)}, TypeQrt2);
    OuvrirDialogue(cadre);
    EXPECT_EQ(Titres(), QStringList{u"disques.qrt"_s});
    EXPECT_EQ(LireOption(u"OpenInitDir"_s, {}), dossier.Chemin());

    dialogues.PreparerAnnulation();
    OuvrirDialogue(cadre);
    EXPECT_EQ(dialogues.Demandes().last().depart, dossier.Chemin());
}

TEST_F(OuvrirDialogueTest, TheOlderTypeOpensAnArchiveToo)
{
    dialogues.Preparer({FichierArchive(u"disques.qrt"_s)}, TypeQrt14);
    OuvrirDialogue(cadre);
    EXPECT_EQ(Titres(), QStringList{u"disques.qrt"_s});
    EXPECT_EQ(Derniere().myqrt.FileType, "2");
}

TEST_F(OuvrirDialogueTest, TheTypeOfAllFilesIsRefusedAndTheDialogComesBack)
{
    const QString chemin = FichierTexte(u"disques.qrt"_s);
    dialogues.Preparer({chemin}, TypeTous);
    dialogues.Preparer({chemin}, TypeQrt2);
    OuvrirDialogue(cadre);
    EXPECT_EQ(reponses.Cles(), QStringList{u"msg46"_s});
    EXPECT_EQ(Titres(), QStringList{u"disques.qrt"_s});
}

TEST_F(OuvrirDialogueTest, TheFolderIsRememberedEvenWhenTheTypeIsRefused)
{
    dialogues.Preparer({FichierTexte(u"disques.qrt"_s)}, TypeTous);
    dialogues.PreparerAnnulation();
    OuvrirDialogue(cadre);
    EXPECT_EQ(dialogues.Demandes().last().depart, dossier.Chemin());
    EXPECT_TRUE(cadre.fenetres.empty());
}

TEST_F(OuvrirDialogueTest, AFileThatDoesNotOpenBringsTheDialogBack)
{
    dialogues.Preparer({dossier.Ecrire(u"lettre.qrt"_s, "Bonjour")}, TypeQrt2);
    dialogues.Preparer({FichierTexte(u"disques.qrt"_s)}, TypeQrt2);
    OuvrirDialogue(cadre);
    EXPECT_EQ(reponses.Cles(), QStringList{u"msg50"_s});
    EXPECT_EQ(Titres(), QStringList{u"disques.qrt"_s});
}

TEST_F(OuvrirDialogueTest, AFileThatIsOpenBringsTheDialogBack)
{
    const QString chemin = FichierTexte(u"disques.qrt"_s);
    ASSERT_TRUE(Ouvrir(chemin));
    dialogues.Preparer({chemin}, TypeQrt2);
    dialogues.PreparerAnnulation();
    OuvrirDialogue(cadre);
    EXPECT_EQ(reponses.Cles(), QStringList{u"msg48"_s});
    EXPECT_EQ(cadre.fenetres.size(), 1);
}

TEST_F(OuvrirDialogueTest, AFileThatTheReaderRefusesEndsTheDialogWithItsEmptyWindow)
{
    dialogues.Preparer({dossier.Ecrire(u"faux.qrt"_s, "[FileInfo]\r\nType=AUTRE\r\n")}, TypeQrt2);
    OuvrirDialogue(cadre);
    EXPECT_EQ(reponses.Cles(), QStringList{u"msg50"_s});
    EXPECT_EQ(Titres(), QStringList{u"faux.qrt"_s});
}

TEST_F(OuvrirDialogueTest, SeveralFilesOpenInTheirOrder)
{
    dialogues.Preparer({FichierTexte(u"b.qrt"_s), FichierArchive(u"a.qrt"_s), FichierTexte(u"c.qrt"_s)}, TypeQrt2);
    OuvrirDialogue(cadre);
    EXPECT_EQ(Titres(), QStringList({u"b.qrt"_s, u"a.qrt"_s, u"c.qrt"_s}));
    EXPECT_TRUE(reponses.Affiches().isEmpty());
    EXPECT_EQ(LireOption(u"OpenInitDir"_s, {}), dossier.Chemin());
}

TEST_F(OuvrirDialogueTest, OfSeveralFilesThoseThatFailAreToldAndTheOthersOpen)
{
    const QString ouvert = FichierTexte(u"ouvert.qrt"_s), lettre = dossier.Ecrire(u"lettre.qrt"_s, "Bonjour");
    ASSERT_TRUE(Ouvrir(ouvert));
    dialogues.Preparer({ouvert, lettre, FichierTexte(u"disques.qrt"_s)}, TypeQrt2);
    OuvrirDialogue(cadre);
    EXPECT_EQ(reponses.Cles(), QStringList({u"msg48"_s, u"msg47"_s, u"msg50"_s, u"msg47"_s}));
    EXPECT_EQ(reponses.Affiches()[1].message.texte, u"Erreur d'ouverture :\n"_s + ouvert);
    EXPECT_EQ(reponses.Affiches()[3].message.texte, u"Erreur d'ouverture :\n"_s + lettre);
    EXPECT_EQ(Titres(), QStringList({u"ouvert.qrt"_s, u"disques.qrt"_s}));
    EXPECT_EQ(dialogues.Demandes().size(), 1) << "the dialog does not come back for several files";
}

TEST_F(OuvrirDialogueTest, SeveralFilesOfNoTypeAreRefusedTogether)
{
    dialogues.Preparer({FichierTexte(u"a.qrt"_s), FichierTexte(u"b.qrt"_s)}, TypeTous);
    dialogues.PreparerAnnulation();
    OuvrirDialogue(cadre);
    EXPECT_EQ(reponses.Cles(), QStringList{u"msg46"_s});
    EXPECT_TRUE(cadre.fenetres.empty());
}
