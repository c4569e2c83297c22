#include "catalogue/documents/Sauver.h"

#include "base/Const_Vrac.h"
#include "base/Options.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/TypeFichier.h"
#include "extensions/langue/modLang.h"
#include "platform/Plateforme.h"
#include "support/FileDeFichiers.h"
#include "support/FileDeReponses.h"
#include "support/PlateformeDeTest.h"
#include "support/TableDeTest.h"

#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace {

struct PanneauNote : PanneauAttente
{
    bool visible = false;
    int montres = 0;
    void Montrer(bool oui) override
    {
        visible = oui;
        montres += oui;
    }
};

class Sauvegarde : public testing::Test
{
protected:
    Sauvegarde()
    {
        d.doc.wait = &panneau;
        MettreColonnes(d.table, {"Titre", "Prêté"});
        AjouterEntrees(d.table, {{"un", ""}});
        d.doc.IlFautSauver = true;
    }
    ~Sauvegarde() override { EnCoursDeSauvegarde = false; }

    /// The document comes from a file of this form.
    QString DepuisFichier(const QString& type)
    {
        const QString chemin = dossier.Ecrire("mes.qrt", "ancien");
        d.doc.SetCheminReel(chemin);
        d.doc.RegarderFichier();
        d.doc.FileType = type;
        return chemin;
    }

    void AttendreFin() const
    {
        EXPECT_FALSE(EnCoursDeSauvegarde);
        EXPECT_FALSE(panneau.visible);
    }
    void AttendreSortieNette() const
    {
        EXPECT_TRUE(EnCoursDeSauvegarde) << "the window refuses to close from here on";
        EXPECT_TRUE(panneau.visible);
    }

    FileDeReponses messages;
    FileDeFichiers dialogues;
    DocumentDeTest d;
    DossierDeTest dossier;
    PanneauNote panneau;
};

} // namespace

TEST_F(Sauvegarde, WhoMayReadTheFileStaysAsItWas)
{
    constexpr auto prive = QFile::ReadOwner | QFile::WriteOwner;
    constexpr auto partage = prive | QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther;
    for (const char* type : {"1", "2"}) {
        const QString chemin = DepuisFichier(type);
        for (const QFile::Permissions droits : {QFile::Permissions(prive), QFile::Permissions(partage)}) {
            ASSERT_TRUE(QFile::setPermissions(chemin, droits));
            EXPECT_TRUE(Enregistrer(d.doc, false, true));
            const auto apres = QFile::permissions(chemin) & ~(QFile::ReadUser | QFile::WriteUser | QFile::ExeUser);
            EXPECT_EQ(int(apres.toInt()), int(droits.toInt())) << type;
        }
    }
}

TEST_F(Sauvegarde, AnUnchangedDocumentIsLeftAloneWhenTheQuestionIsAllowed)
{
    const QString chemin = DepuisFichier("2");
    d.doc.IlFautSauver = false;
    EXPECT_TRUE(Enregistrer(d.doc, false, false));
    EXPECT_EQ(dossier.Lire("mes.qrt"), "ancien");
    AttendreFin();
    EXPECT_TRUE(Enregistrer(d.doc, false, true)) << "plain Save writes all the same";
    EXPECT_EQ(TypeFichier(chemin), 2);
}

TEST_F(Sauvegarde, TheQuestionAtClosingHasThreeAnswers)
{
    DepuisFichier("2");
    messages.Preparer(RepNon);
    EXPECT_TRUE(Enregistrer(d.doc, false, false)) << "No drops the changes";
    EXPECT_TRUE(d.doc.IlFautSauver);
    messages.Preparer(RepAnnuler);
    EXPECT_FALSE(Enregistrer(d.doc, false, false));
    EXPECT_EQ(dossier.Lire("mes.qrt"), "ancien");
    EXPECT_EQ(panneau.montres, 0) << "there is nothing to wait for";
    AttendreFin();
    messages.Preparer(RepOui);
    EXPECT_TRUE(Enregistrer(d.doc, false, false));
    EXPECT_FALSE(d.doc.IlFautSauver);
    EXPECT_EQ(panneau.montres, 1);
    AttendreFin();
    const auto& question = messages.Affiches().first();
    EXPECT_EQ(question.message.texte, "Voulez-vous enregistrer les changement dans cette catégorie?");
    EXPECT_EQ(question.message.cle, "");
    EXPECT_EQ(question.titre, "mes.qrt");
    EXPECT_EQ(question.genre, MsgOuiNonAnnuler);
}

TEST_F(Sauvegarde, PlainSaveWritesTheFormThatTheDocumentHas)
{
    const QString chemin = DepuisFichier("1");
    EXPECT_TRUE(Enregistrer(d.doc, false, true));
    EXPECT_EQ(TypeFichier(chemin), 1);
    d.doc.FileType = "2";
    EXPECT_TRUE(Enregistrer(d.doc, false, true));
    EXPECT_EQ(TypeFichier(chemin), 2);
    EXPECT_EQ(LireOption("FRecent1", {}).toString(), chemin);
    EXPECT_EQ(panneau.montres, 2);
    AttendreFin();
}

TEST_F(Sauvegarde, ADocumentWithoutAFormSavesNothingAndLeavesTheFlag)
{
    DepuisFichier("3");
    EXPECT_FALSE(Enregistrer(d.doc, false, true));
    EXPECT_EQ(messages.Cles(), QStringList("msg63"));
    EXPECT_EQ(dossier.Lire("mes.qrt"), "ancien");
    EXPECT_TRUE(d.doc.IlFautSauver);
    AttendreSortieNette();
    d.doc.FileType = "2";
    EXPECT_TRUE(Enregistrer(d.doc, false, true));
    AttendreFin();
}

TEST_F(Sauvegarde, TheFolderHoldsWhatWasSavedInEitherForm)
{
    for (const QString& type : {QStringLiteral("2"), QStringLiteral("1")}) {
        DepuisFichier(type);
        d.table.ListItems(1).SetText(QStringLiteral("forme ") + type);
        EXPECT_TRUE(Enregistrer(d.doc, false, true));
        EXPECT_TRUE(d.dossier.Lire("Zelvane.qrt").contains("=forme " + type.toLatin1() + "|")) << type.toStdString();
    }
}

TEST_F(Sauvegarde, WithoutColumnsTheWriterFailsAndIsTold)
{
    DepuisFichier("2");
    d.doc.ClearLV();
    EXPECT_FALSE(Enregistrer(d.doc, false, true));
    d.doc.FileType = "1";
    EXPECT_FALSE(Enregistrer(d.doc, false, true));
    EXPECT_EQ(messages.Cles(), QStringList({"msg62", "msg62"}));
    EXPECT_TRUE(d.doc.IlFautSauver);
    EXPECT_EQ(dossier.Lire("mes.qrt"), "ancien");
    AttendreFin();
}

// ---- Read-only files

TEST_F(Sauvegarde, AReadOnlyFileIsAskedAboutAndItsAttributeCleared)
{
    const QString chemin = DepuisFichier("2");
    ASSERT_TRUE(plateforme().attributs->MettreLectureSeule(chemin, true));
    messages.Preparer(RepAnnuler);
    EXPECT_FALSE(Enregistrer(d.doc, false, true));
    EXPECT_EQ(dossier.Lire("mes.qrt"), "ancien");
    AttendreFin();
    messages.Preparer(RepOui);
    EXPECT_TRUE(Enregistrer(d.doc, false, true));
    EXPECT_FALSE(plateforme().attributs->EstLectureSeule(chemin));
    EXPECT_EQ(messages.Cles(), QStringList({"msg59", "msg59"}));
    EXPECT_EQ(messages.Affiches().first().message.texte,
              "Le fichier est en lecture seule. Continuer l'enregistrement?");
}

TEST_F(Sauvegarde, NoToAReadOnlyFileLeadsToSaveAs)
{
    const QString chemin = DepuisFichier("2");
    ASSERT_TRUE(plateforme().attributs->MettreLectureSeule(chemin, true));
    messages.Preparer(RepNon);
    dialogues.Preparer({dossier.Fichier("autre.qrt")}, 2);
    EXPECT_TRUE(Enregistrer(d.doc, false, true));
    EXPECT_EQ(dossier.Lire("mes.qrt"), "ancien");
    EXPECT_EQ(d.doc.filename(), "autre.qrt");
    plateforme().attributs->MettreLectureSeule(chemin, false);
}

TEST_F(Sauvegarde, AFileWhoseAttributeStaysIsNotWrittenAndNothingIsTold)
{
    const QString chemin = DepuisFichier("2");
    AttributsEnMemoire& attributs = PlateformeDeTest::Courante().attributsEnMemoire;
    plateforme().attributs = &attributs;
    attributs.lectureSeule.insert(chemin);
    attributs.figes.insert(chemin);
    messages.Preparer(RepOui);
    EXPECT_FALSE(Enregistrer(d.doc, false, true));
    AttendreFin();

    d.doc.SetCheminReel(QString());
    dialogues.Preparer({chemin}, 2);
    messages.Preparer(RepOui); // to replace it
    messages.Preparer(RepOui);
    EXPECT_FALSE(Enregistrer(d.doc, false, true));
    AttendreFin();

    EXPECT_EQ(messages.Cles(), QStringList({"msg59", "msg59", "msg60"}));
    EXPECT_EQ(dossier.Lire("mes.qrt"), "ancien");
    EXPECT_EQ(d.doc.CheminReel(), "");
    EXPECT_TRUE(d.doc.IlFautSauver);
}

TEST_F(Sauvegarde, AReadOnlyFileIsAskedAboutAlsoBeforeSaveAs)
{
    const QString chemin = DepuisFichier("2");
    for (const int reponse : {RepAnnuler, RepNon, RepOui}) {
        ASSERT_TRUE(plateforme().attributs->MettreLectureSeule(chemin, true));
        d.doc.SetCheminReel(chemin);
        messages.Preparer(reponse);
        if (reponse != RepAnnuler)
            dialogues.Preparer({dossier.Fichier(QString::number(reponse))}, 2);
        EXPECT_EQ(Enregistrer(d.doc, true, true), reponse != RepAnnuler);
        EXPECT_EQ(plateforme().attributs->EstLectureSeule(chemin), reponse != RepOui);
    }
    EXPECT_EQ(messages.Cles(), QStringList({"msg59", "msg59", "msg59"}));
    EXPECT_EQ(dossier.Lire("mes.qrt"), "ancien");
}

// ---- Save As

TEST_F(Sauvegarde, EachQuestionKeepsItsOwnTextOnceTheTemplateForTranslatorsIsTheLanguage)
{
    const QString chemin = DepuisFichier("2");
    const auto lectureSeule = [&] {
        ASSERT_TRUE(plateforme().attributs->MettreLectureSeule(chemin, true));
        messages.Preparer(RepOui);
        EXPECT_TRUE(Enregistrer(d.doc, false, true));
    };
    const auto remplacer = [&] {
        dialogues.Preparer({chemin}, 2);
        messages.Preparer(RepOui);
        EXPECT_TRUE(Enregistrer(d.doc, true, true));
    };
    PlateformeDeTest::Courante().dossier.Ecrire("lang/default.ini", ""); // the first start records there
    lectureSeule();
    remplacer();
    lectureSeule();
    ASSERT_TRUE(ChargerLangue("default")); // and the second one reads it
    remplacer();
    lectureSeule();
    remplacer();

    QStringList textes;
    for (const auto& affiche : messages.Affiches())
        textes.append(affiche.message.texte);
    const QString protege = "Le fichier est en lecture seule. Continuer l'enregistrement?";
    const QString existe = "Le fichier existe deja, voulez-vous le remplacer?";
    EXPECT_EQ(textes, QStringList({protege, existe, protege, existe, protege, existe}));
}

TEST_F(Sauvegarde, TheDialogStartsAtTheDocumentsFileThenInTheFolderOfTheLastOne)
{
    DepuisFichier("2");
    dialogues.PreparerAnnulation();
    EXPECT_FALSE(Enregistrer(d.doc, true, true));
    EXPECT_EQ(dialogues.Demandes().last().depart, d.doc.CheminReel());

    EcrireOption("SaveInitDir", "/ailleurs/");
    dialogues.PreparerAnnulation();
    EXPECT_FALSE(Enregistrer(d.doc, true, true));
    EXPECT_EQ(dialogues.Demandes().last().depart, "/ailleurs/mes.qrt");

    d.doc.SetCheminReel(QString());
    dialogues.PreparerAnnulation();
    EXPECT_FALSE(Enregistrer(d.doc, true, true));
    EXPECT_EQ(dialogues.Demandes().last().depart, "/ailleurs/") << "a new category has no name to propose";
}

TEST_F(Sauvegarde, AFileThatHasItsNewNameIsTheMostRecentOneAndHasNoBackup)
{
    EcrireOption("SauvegardeLBK", 1);
    EcrireOption("SauvegardeLBK_1", 1);
    const QString existant = dossier.Ecrire("existant.qrt", "ancien");
    DepuisFichier("2");
    dialogues.Preparer({existant}, 2);
    messages.Preparer(RepOui);
    EXPECT_TRUE(Enregistrer(d.doc, true, true));
    EXPECT_EQ(LireOption("FRecent1", {}).toString(), existant);
    EXPECT_EQ(d.doc.NbSauv(), "0") << "a plain save makes backups";
    EXPECT_FALSE(dossier.Existe("existant.qrt.bak") || dossier.Existe("mes.qrt.bak"));
}

TEST_F(Sauvegarde, ANewNameThatCannotBeWrittenToStaysTheDocuments)
{
    d.doc.ClearLV();
    for (const int type : {2, 3}) {
        const QString chemin = dossier.Fichier(QString::number(type) + ".qrt");
        dialogues.Preparer({chemin}, type);
        if (type == 3)
            messages.Preparer(RepNon);
        EXPECT_FALSE(Enregistrer(d.doc, true, true));
        EXPECT_EQ(messages.Cles().last(), "msg62");
        EXPECT_EQ(d.doc.CheminReel(), chemin);
        EXPECT_EQ(d.doc.FileType, QString::number(type));
        EXPECT_TRUE(d.doc.IlFautSauver);
        EXPECT_EQ(LireOption("FRecent1", {}).toString(), "");
        AttendreFin();
    }
}

TEST_F(Sauvegarde, ACancelledDialogEndsInOrderAlsoAfterASaveThatDidNot)
{
    DepuisFichier("3");
    EXPECT_FALSE(Enregistrer(d.doc, false, true));
    AttendreSortieNette();
    dialogues.PreparerAnnulation();
    EXPECT_FALSE(Enregistrer(d.doc, true, true));
    EXPECT_EQ(messages.Cles(), QStringList("msg63"));
    AttendreFin();
}

TEST_F(Sauvegarde, ADocumentNeverSavedGoesThroughSaveAsWithoutABackup)
{
    EcrireOption("SauvegardeLBK", 1);
    dialogues.Preparer({dossier.Fichier("neuf")}, 2);
    EXPECT_TRUE(Enregistrer(d.doc, false, true));
    EXPECT_EQ(d.doc.CheminReel(), dossier.Fichier("neuf.qrt")) << "a catalogue type gives its extension";
    EXPECT_EQ(d.doc.FileType, "2");
    EXPECT_EQ(d.doc.NbSauv(), "0");
    EXPECT_FALSE(d.doc.IlFautSauver);
    EXPECT_EQ(LireOption("SaveInitDir", {}).toString(), dossier.Chemin());
    const DemandeFichier& demande = dialogues.Demandes().first();
    EXPECT_EQ(demande.titre, "Enregistrer La Categorie Sous");
    EXPECT_EQ(demande.type, 2);
    ASSERT_EQ(demande.types.size(), 3);
    EXPECT_EQ(demande.types[1].libelle, "Zelvane 2/1.5");
    EXPECT_EQ(demande.types[2].motifs, "*.qrt");
    AttendreFin();
}

TEST_F(Sauvegarde, ATypedExtensionStays)
{
    dialogues.Preparer({dossier.Fichier("neuf.cat")}, 2);
    EXPECT_TRUE(Enregistrer(d.doc, true, true));
    EXPECT_EQ(d.doc.filename(), "neuf.cat");
}

TEST_F(Sauvegarde, ACancelledDialogSavesNothing)
{
    dialogues.PreparerAnnulation();
    EXPECT_FALSE(Enregistrer(d.doc, true, true));
    EXPECT_EQ(d.doc.CheminReel(), "");
    EXPECT_TRUE(d.doc.IlFautSauver);
    AttendreFin();
}

TEST_F(Sauvegarde, AllFilesIsNoTypeToSaveAs)
{
    dialogues.Preparer({dossier.Fichier("a.qrt")}, 1);
    dialogues.PreparerAnnulation();
    EXPECT_FALSE(Enregistrer(d.doc, true, true));
    EXPECT_EQ(messages.Cles(), QStringList("msg46"));
    EXPECT_FALSE(dossier.Existe("a.qrt"));
    EXPECT_EQ(LireOption("SaveInitDir", {}).toString(), dossier.Chemin()) << "the folder is remembered all the same";
}

TEST_F(Sauvegarde, AnExistingFileIsReplacedOnYesOnly)
{
    const QString existant = dossier.Ecrire("existant.qrt", "ancien");
    dialogues.Preparer({existant}, 2);
    messages.Preparer(RepNon);
    dialogues.PreparerAnnulation();
    EXPECT_FALSE(Enregistrer(d.doc, true, true)) << "No comes back to the dialog";
    EXPECT_EQ(dossier.Lire("existant.qrt"), "ancien");
    AttendreFin();

    dialogues.Preparer({existant}, 2);
    messages.Preparer(RepAnnuler);
    EXPECT_FALSE(Enregistrer(d.doc, true, true));
    EXPECT_EQ(dossier.Lire("existant.qrt"), "ancien");
    AttendreSortieNette();

    dialogues.Preparer({existant}, 2);
    messages.Preparer(RepOui);
    EXPECT_TRUE(Enregistrer(d.doc, true, true));
    EXPECT_EQ(TypeFichier(existant), 2);
    AttendreFin();
    EXPECT_EQ(messages.Affiches().first().message.cle, "msg59");
    EXPECT_EQ(messages.Affiches().first().message.texte, "Le fichier existe deja, voulez-vous le remplacer?");
    EXPECT_EQ(messages.Affiches().first().titre, existant);
}

TEST_F(Sauvegarde, AnExistingReadOnlyFileIsAskedAboutTwice)
{
    const QString existant = dossier.Ecrire("existant.qrt", "ancien");
    ASSERT_TRUE(plateforme().attributs->MettreLectureSeule(existant, true));
    for (const int reponse : {RepNon, RepAnnuler, RepOui}) {
        dialogues.Preparer({existant}, 2);
        messages.Preparer(RepOui);
        messages.Preparer(reponse);
        if (reponse == RepNon)
            dialogues.PreparerAnnulation();
        EXPECT_EQ(Enregistrer(d.doc, true, true), reponse == RepOui);
        AttendreFin();
    }
    EXPECT_EQ(messages.Cles(), QStringList({"msg59", "msg60", "msg59", "msg60", "msg59", "msg60"}));
    EXPECT_FALSE(plateforme().attributs->EstLectureSeule(existant));
}

TEST_F(Sauvegarde, FormFourteenIsWrittenOnNoAndAskedForAgainOnYes)
{
    const QString chemin = dossier.Fichier("vieux.qrt");
    dialogues.Preparer({chemin}, 3);
    messages.Preparer(RepOui);
    dialogues.PreparerAnnulation();
    EXPECT_FALSE(Enregistrer(d.doc, true, true));
    EXPECT_EQ(d.doc.CheminReel(), chemin) << "the path changed although the user went back";
    EXPECT_FALSE(QFileInfo::exists(chemin));
    for (const int reponse : {RepNon, RepAnnuler}) {
        QFile::remove(chemin);
        dialogues.Preparer({chemin}, 3);
        messages.Preparer(reponse);
        EXPECT_TRUE(Enregistrer(d.doc, true, true));
        EXPECT_EQ(TypeFichier(chemin), 1);
    }
    EXPECT_EQ(d.doc.FileType, "3");
    EXPECT_FALSE(Enregistrer(d.doc, false, true)) << "after that only Save As writes";
    EXPECT_EQ(messages.Cles().last(), "msg63");
    AttendreSortieNette();
    dialogues.Preparer({dossier.Fichier("neuf.qrt")}, 2);
    EXPECT_TRUE(Enregistrer(d.doc, true, true));
    AttendreFin();
}

TEST_F(Sauvegarde, CharactersBeyondFormFourteenAreAskedAbout)
{
    const QString chemin = DepuisFichier("1");
    d.table.ListItems(1).SetText("日本");
    messages.Preparer(RepNon);
    EXPECT_FALSE(Enregistrer(d.doc, false, true));
    EXPECT_EQ(dossier.Lire("mes.qrt"), "ancien");
    AttendreFin();
    messages.Preparer(RepOui);
    EXPECT_TRUE(Enregistrer(d.doc, false, true));
    EXPECT_TRUE(dossier.Lire("mes.qrt").contains("It1=??|"));
}

TEST_F(Sauvegarde, ATypeThatIsNoneOfTheThreeSavesNothing)
{
    dialogues.Preparer({dossier.Fichier("a.qrt")}, 4);
    EXPECT_FALSE(Enregistrer(d.doc, true, true));
    EXPECT_EQ(messages.Cles(), QStringList("msg63"));
    AttendreFin();
}

TEST_F(Sauvegarde, AnArchiveThatIsNotWholeIsToldAndTheFolderKept)
{
    d.doc.FileType = "2";
    d.doc.SetCheminReel(dossier.Fichier("absent/mes.qrt"));
    EXPECT_TRUE(Enregistrer(d.doc, false, true));
    EXPECT_TRUE(d.doc.GardeDossier());
    EXPECT_EQ(messages.Cles(), QStringList("msgArchive"));
    AttendreFin();
}

// ---- Backups

TEST_F(Sauvegarde, OnlyTheFirstPlainSaveMakesABackupByDefault)
{
    DepuisFichier("1");
    EcrireOption("SauvegardeLBK", 1);
    EXPECT_TRUE(Enregistrer(d.doc, false, true));
    EXPECT_EQ(dossier.Lire("mes.qrt.bak"), "ancien");
    EXPECT_EQ(d.doc.NbSauv(), "1");
    EXPECT_TRUE(Enregistrer(d.doc, false, true));
    EXPECT_EQ(dossier.Lire("mes.qrt.bak"), "ancien");
    EXPECT_EQ(d.doc.NbSauv(), "1") << "backups are counted, not saves";
}

TEST_F(Sauvegarde, EveryPlainSaveMakesABackupWhenAskedTo)
{
    DepuisFichier("1");
    EcrireOption("SauvegardeLBK", 1);
    EcrireOption("SauvegardeLBK_1", 1);
    EXPECT_TRUE(Enregistrer(d.doc, false, true));
    const QByteArray premier = dossier.Lire("mes.qrt");
    EXPECT_TRUE(Enregistrer(d.doc, false, true));
    EXPECT_EQ(dossier.Lire("mes.qrt.bak"), premier) << "one generation, overwritten";
    EXPECT_EQ(d.doc.NbSauv(), "2");
}

TEST_F(Sauvegarde, WithoutTheSettingThereIsNoBackup)
{
    DepuisFichier("1");
    EXPECT_TRUE(Enregistrer(d.doc, false, true));
    EXPECT_FALSE(dossier.Existe("mes.qrt.bak"));
}

TEST_F(Sauvegarde, ABackupThatFailsDoesNotStopTheSave)
{
    EcrireOption("SauvegardeLBK", 1);
    d.doc.FileType = "1";
    d.doc.SetCheminReel(dossier.Fichier("jamais-ecrit.qrt"));
    EXPECT_TRUE(Enregistrer(d.doc, false, true));
    EXPECT_FALSE(dossier.Existe("jamais-ecrit.qrt.bak"));
    EXPECT_EQ(d.doc.NbSauv(), "1");
}

TEST_F(Sauvegarde, AnUnchangedDocumentClosesWithoutAQuestion)
{
    d.doc.IlFautSauver = false;
    EXPECT_TRUE(PeutFermer(d.doc));
}

TEST_F(Sauvegarde, AChangedDocumentClosesUnlessTheQuestionIsCancelled)
{
    DepuisFichier("2");
    for (const auto& [reponse, ferme] : {std::pair(RepAnnuler, false), {RepNon, true}, {RepOui, true}}) {
        d.doc.IlFautSauver = true;
        messages.Preparer(reponse);
        EXPECT_EQ(PeutFermer(d.doc), ferme) << reponse;
        EXPECT_EQ(d.doc.IlFautSauver, reponse != RepOui);
    }
}

TEST_F(Sauvegarde, NothingClosesWhileASaveRuns)
{
    d.doc.IlFautSauver = false;
    EnCoursDeSauvegarde = true;
    EXPECT_FALSE(PeutFermer(d.doc));
}

TEST_F(Sauvegarde, ADocumentOfAFormThatCannotBeWrittenDoesNotClose)
{
    DepuisFichier("3");
    messages.Preparer(RepOui);
    EXPECT_FALSE(PeutFermer(d.doc));
    AttendreSortieNette();
    EXPECT_FALSE(PeutFermer(d.doc)) << "without another question";
}
