// Another program writes the document's file between two saves.
#include "base/Const_Vrac.h"
#include "base/DossiersTemp.h"
#include "base/Options.h"
#include "catalogue/documents/ChargerCatalogue.h"
#include "catalogue/documents/CopieDeSecours.h"
#include "catalogue/documents/DossiersLaisses.h"
#include "catalogue/documents/Sauver.h"
#include "catalogue/texte/Categorie.h"
#include "support/CadreDeTest.h"
#include "support/FileDeFichiers.h"
#include "support/FileDeReponses.h"
#include "support/PlateformeDeTest.h"
#include "support/TableDeTest.h"

#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <functional>
#include <sys/stat.h>

namespace {

const QString s_cle = QStringLiteral("msgFichierChange");

class FichierChange : public testing::Test
{
protected:
    FichierChange()
    {
        TexteDeCatalogue texte;
        texte.entrees = {"Abbey Road|"};
        m_texte = texte.Texte();
        chemin = dossier.Ecrire("mes.qrt", m_texte);
    }
    ~FichierChange() override { EnCoursDeSauvegarde = false; }

    void Ouvrir()
    {
        ASSERT_TRUE(ChargerCatalogue(d.doc, chemin, TexteSeul));
        d.doc.IlFautSauver = true;
    }
    /// Another program replaces the file by one of other bytes.
    void Remplacer()
    {
        ASSERT_TRUE(QFile::remove(chemin));
        dossier.Ecrire("mes.qrt", s_autre);
    }
    bool Intact() const { return dossier.Lire("mes.qrt") == s_autre; }

    static inline const QByteArray s_autre = "what another program wrote";
    FileDeReponses messages;
    FileDeFichiers dialogues;
    DossierDeTest dossier;
    DocumentDeTest d;
    QString chemin;
    QByteArray m_texte;
};

struct timespec DateDe(const QString& chemin)
{
    struct stat etat = {};
    EXPECT_EQ(stat(QFile::encodeName(chemin).constData(), &etat), 0);
    return etat.st_mtim;
}

void Dater(const QString& chemin, const struct timespec& date)
{
    const struct timespec dates[2] = {{0, UTIME_OMIT}, date};
    EXPECT_EQ(utimensat(AT_FDCWD, QFile::encodeName(chemin).constData(), dates, 0), 0);
}

} // namespace

TEST_F(FichierChange, NoKeepsItAndTheDocumentUnsaved)
{
    EcrireOption("SauvegardeLBK", 1);
    Ouvrir();
    Remplacer();
    for (int i = 1; i <= 2; ++i) {
        messages.Preparer(RepNon);
        EXPECT_FALSE(Enregistrer(d.doc, false, true));
        EXPECT_TRUE(d.doc.IlFautSauver);
        EXPECT_TRUE(Intact());
        EXPECT_EQ(messages.Cles(), QStringList(i, s_cle));
    }
    EXPECT_FALSE(EnCoursDeSauvegarde) << "the window may go";
    EXPECT_FALSE(dossier.Existe("mes.qrt.bak"));
    EXPECT_EQ(messages.Affiches().first().titre, "mes.qrt");
    EXPECT_EQ(messages.Affiches().first().genre, MsgOuiNon);
    EXPECT_EQ(messages.Affiches().first().message.defaut, RepNon) << "Enter takes nothing away";
}

TEST_F(FichierChange, YesReplacesItAndTheNextSaveAsksNoMore)
{
    for (const char* forme : {"1", "2"}) {
        Ouvrir();
        d.doc.FileType = forme;
        Remplacer();
        messages.Preparer(RepOui);
        EXPECT_TRUE(Enregistrer(d.doc, false, true));
        EXPECT_FALSE(d.doc.IlFautSauver);
        EXPECT_FALSE(Intact());
        const QStringList demandees = messages.Cles();
        EXPECT_TRUE(Enregistrer(d.doc, false, true));
        EXPECT_EQ(messages.Cles(), demandees);
        dossier.Ecrire("mes.qrt", m_texte);
    }
}

TEST_F(FichierChange, WhatThisProgramReadOrWroteItselfIsNoChange)
{
    for (const char* forme : {"1", "2"}) {
        dossier.Ecrire("mes.qrt", m_texte);
        Ouvrir();
        d.doc.FileType = forme;
        EXPECT_TRUE(Enregistrer(d.doc, false, true));
        EXPECT_TRUE(Enregistrer(d.doc, false, true));
        EXPECT_TRUE(PeutFermer(d.doc)); // it has every byte on the disk
        EXPECT_TRUE(Enregistrer(d.doc, false, true));
    }
    EXPECT_EQ(messages.Cles(), QStringList());
}

TEST_F(FichierChange, SizeTimeOrAnotherFileIsAChange)
{
    const auto allonger = [this] {
        const struct timespec date = DateDe(chemin);
        QFile fichier(chemin);
        ASSERT_TRUE(fichier.open(QIODevice::Append) && fichier.write("x") == 1);
        fichier.close();
        Dater(chemin, date);
    };
    const auto dater = [this] { Dater(chemin, {1'000'000'000, 0}); };
    const auto echanger = [this] {
        const struct timespec date = DateDe(chemin);
        const QString autre = dossier.Ecrire("autre.qrt", dossier.Lire("mes.qrt"));
        Dater(autre, date);
        ASSERT_TRUE(QFile::rename(chemin, dossier.Fichier("parti.qrt")) && QFile::rename(autre, chemin));
    };
    int questions = 0;
    for (const std::function<void()>& change : {std::function<void()>(allonger), {dater}, {echanger}}) {
        Ouvrir();
        change();
        messages.Preparer(RepNon);
        EXPECT_FALSE(Enregistrer(d.doc, false, true));
        EXPECT_EQ(messages.Cles().size(), ++questions);
    }
}

TEST_F(FichierChange, AFileThatIsGoneIsWrittenAnew)
{
    Ouvrir();
    ASSERT_TRUE(QFile::remove(chemin));
    EXPECT_TRUE(Enregistrer(d.doc, false, true));
    EXPECT_TRUE(QFileInfo::exists(chemin));
    EXPECT_EQ(messages.Cles(), QStringList());
}

TEST_F(FichierChange, AFormThatCannotBeWrittenAsksNothing)
{
    Ouvrir();
    Remplacer();
    d.doc.FileType = "3";
    EXPECT_FALSE(Enregistrer(d.doc, false, true));
    EXPECT_EQ(messages.Cles(), QStringList("msg63"));
    EXPECT_TRUE(Intact());
}

TEST_F(FichierChange, ThroughALinkTheFileItselfCounts)
{
    const QString lien = dossier.Fichier("lien.qrt");
    ASSERT_TRUE(QFile::link(chemin, lien));
    ASSERT_TRUE(ChargerCatalogue(d.doc, lien, TexteSeul));
    EXPECT_TRUE(Enregistrer(d.doc, false, true));
    Remplacer();
    messages.Preparer(RepNon);
    EXPECT_FALSE(Enregistrer(d.doc, false, true));
    EXPECT_TRUE(Intact());
}

TEST_F(FichierChange, SaveAsOntoItselfAsksTooAndNoGoesBackToTheDialog)
{
    Ouvrir();
    Remplacer();
    dialogues.Preparer({chemin}, 2);
    dialogues.PreparerAnnulation();
    messages.Preparer(RepOui);
    messages.Preparer(RepNon);
    EXPECT_FALSE(Enregistrer(d.doc, true, true));
    EXPECT_EQ(messages.Cles(), QStringList({"msg59", s_cle}));
    EXPECT_TRUE(Intact());
}

TEST_F(FichierChange, AFileThatTheUserChoseToReplaceIsAskedAboutOnceUnlessItChangesThen)
{
    Ouvrir();
    const QString ailleurs = dossier.Ecrire("ailleurs.qrt", "x");
    dialogues.Preparer({ailleurs}, 2);
    messages.Preparer(RepOui);
    EXPECT_TRUE(Enregistrer(d.doc, true, true));
    EXPECT_TRUE(Enregistrer(d.doc, false, true));
    EXPECT_EQ(messages.Cles(), QStringList({"msg59"}));
    dossier.Ecrire("ailleurs.qrt", "y");
    messages.Preparer(RepNon);
    EXPECT_FALSE(Enregistrer(d.doc, false, true));
    EXPECT_EQ(messages.Cles(), QStringList({"msg59", s_cle}));
}

namespace {

/// What a killed run left of the document: its folder and its rescue copy.
class FichierChangeApresUneMort : public FichierChange
{
protected:
    void Mourir(const std::function<void(Categorie&)>& avant = {})
    {
        Ouvrir();
        const QString laisse = TempFolder + "/cat7/";
        PlateformeDeTest::Courante().dossier.Ecrire("temp/cat7/Zelvane.qrt", m_texte);
        d.doc.TmpFolder = laisse;
        if (avant)
            avant(d.doc);
        ASSERT_EQ(EcritureDeSecours(d.doc, "mes.qrt").Achever(), EcritureDeSecours::Etat::Faite);
    }
    Categorie& Reprendre()
    {
        const std::vector<DossierLaisse> laisses = ChercherLaisses();
        EXPECT_EQ(laisses.size(), 1);
        EXPECT_TRUE(OuvrirLaisse(cadre, laisses.at(0)));
        return cadre.fenetres.back()->myqrt;
    }

    CadreDeTest cadre;
    qint64 m_maintenant = 0;
};

} // namespace

TEST_F(FichierChangeApresUneMort, AFileThatHasMovedOnIsAskedAbout)
{
    Mourir();
    Remplacer();
    Categorie& doc = Reprendre();
    dialogues.Preparer({chemin}, 2);
    dialogues.PreparerAnnulation();
    messages.Preparer(RepOui);
    messages.Preparer(RepNon);
    EXPECT_FALSE(Enregistrer(doc, false, true));
    EXPECT_EQ(messages.Cles(), QStringList({"msg59", s_cle}));
    EXPECT_TRUE(Intact());
    EXPECT_TRUE(doc.IlFautSauver);
}

TEST_F(FichierChangeApresUneMort, AFileThatStandsAsItDidIsNot)
{
    Mourir();
    Categorie& doc = Reprendre();
    dialogues.Preparer({chemin}, 2);
    messages.Preparer(RepOui);
    EXPECT_TRUE(Enregistrer(doc, false, true));
    EXPECT_EQ(messages.Cles(), QStringList({"msg59"}));
}

TEST_F(FichierChangeApresUneMort, ACopyThatDoesNotTellTheFileAsksNoMoreThanBefore)
{
    Mourir([](Categorie& doc) { doc.FichierVu.reset(); });
    Remplacer();
    Categorie& doc = Reprendre();
    EXPECT_FALSE(doc.FichierVu);
    dialogues.Preparer({chemin}, 2);
    messages.Preparer(RepOui);
    EXPECT_TRUE(Enregistrer(doc, false, true));
    EXPECT_EQ(messages.Cles(), QStringList({"msg59"}));
}

TEST_F(FichierChangeApresUneMort, TheCopyFollowsEachSave)
{
    Ouvrir();
    d.doc.CreerDossier();
    SecoursDuDocument secours;
    const auto copie = [&] {
        for (int i = 1; i <= 3; ++i)
            secours.Avancer(d.doc, "mes.qrt", {m_maintenant += 60'000, 0});
        return LireIdentite(FichierDeSecours(d.doc.TmpFolder));
    };
    for (int i = 0; i < 2; ++i) {
        d.doc.FileType = "2";
        ASSERT_TRUE(Enregistrer(d.doc, false, true));
        // The disk may still be busy with the file; closing waits for it.
        ASSERT_TRUE(PeutFermer(d.doc));
        const auto identite = copie();
        ASSERT_TRUE(identite && identite->fichier);
        EXPECT_EQ(VersMot(*identite->fichier), VersMot(TraceDe(chemin)));
    }
}
