// What is being typed in an open editor when the session or the process ends.
#include "catalogue/texte/SaisieEnCours.h"

#include "base/DossiersTemp.h"
#include "catalogue/documents/CopieDeSecours.h"
#include "catalogue/documents/DossiersLaisses.h"
#include "catalogue/documents/SecoursDesDocuments.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/EcritureQrt.h"
#include "catalogue/texte/LectureQrt.h"
#include "support/CadreDeTest.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"
#include "support/TableDeTest.h"

#include <QDir>
#include <QFileInfo>
#include <QThread>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using Cible = SaisieEnCours::Cible;

/// A document without unsaved changes, saved as an archive.
class SaisieAuSecours : public testing::Test
{
protected:
    SaisieAuSecours()
    {
        doc.TmpFolder = CreerDossierTemp();
        doc.SetCheminReel(dossier.Fichier(u"disques.qrt"_s));
        doc.FileType = u"2"_s;
        fenetre.SetCaption(u"disques.qrt"_s);
        MettreColonnes(table, {"Titre", "Prêté"});
        table.ColumnHeaders(2).SetTag(u"Ida"_s);
        AjouterEntrees(table, {{"a", "1"}, {"b", "2"}, {"c", "3"}});
        table.ListItems(1).SetTag(u"a.jpg"_s);
        EXPECT_TRUE(EcrireFichier(doc, false));
        m_texte = Texte();
        m_generation = table.Generation();
    }

    void Taper(Cible cible, const QStringList& valeurs, const QString& image = QString())
    {
        const SaisieEnCours saisie{cible, 2, valeurs, {QString(), u"Ida"_s}, image};
        doc.Saisie = [saisie] { return std::optional(saisie); };
    }

    QByteArray Texte() const
    {
        struct EnMemoire : Puits
        {
            QByteArray octets;
            bool Recevoir(const char* debut, size_t taille) override
            {
                octets.append(debut, static_cast<qsizetype>(taille));
                return true;
            }
        } puits;
        EcrireTexteQrt(doc, "2", EntreesEcrites::Toutes, stockage::Codage::Utf8, puits);
        return puits.octets;
    }
    /// The entries of the copy, each as its values and its image; nothing without a copy that has a text.
    std::optional<QStringList> Copie() const
    {
        const auto texte = LireTexteDeSecours(FichierDeSecours(doc.TmpFolder));
        if (!texte)
            return std::nullopt;
        DocumentDeTest lu;
        EXPECT_TRUE(ChargerTexteExact(lu.doc, *texte));
        QStringList entrees;
        for (int i = 1; i <= lu.table.ListItems.Count(); ++i)
            entrees.append((lu.table.ListItems(i).Valeurs() << lu.table.ListItems(i).Tag()).join(u'/'));
        return entrees;
    }
    void ExpectCommeAvant() const
    {
        EXPECT_EQ(Texte(), m_texte);
        EXPECT_EQ(table.Generation(), m_generation);
        EXPECT_FALSE(doc.IlFautSauver);
    }
    void Battre()
    {
        for (int i = 0; i < 100; ++i) {
            moment.maintenant += 1000;
            while (AvancerLesSecours(cadre, moment))
                QThread::usleep(100);
        }
    }

    const DossierDeTest& dossier = PlateformeDeTest::Courante().dossier;
    CadreDeTest cadre;
    FenetreDeTest& fenetre = dynamic_cast<FenetreDeTest&>(cadre.NouvelleFenetre());
    MyLV& table = fenetre.table;
    Categorie& doc = fenetre.myqrt;
    MomentDeSecours moment{100000, 0};
    FileDeReponses reponses;

private:
    QByteArray m_texte;
    uint64_t m_generation = 0;
};

} // namespace

TEST_F(SaisieAuSecours, AnEntryIsCopiedAsItIsTyped)
{
    Taper(Cible::Entree, {"bb", ""}, u"n.jpg"_s);
    LaisserAuSecours(cadre);
    EXPECT_EQ(Copie(), QStringList({"a/1/a.jpg", "bb//n.jpg", "c/3/"}));
    ExpectCommeAvant();
}

TEST_F(SaisieAuSecours, ANewEntryIsCopiedBehindAllOthers)
{
    Taper(Cible::Ajout, {"neuf", "4"}, u"n.jpg"_s);
    LaisserAuSecours(cadre);
    EXPECT_EQ(Copie(), QStringList({"a/1/a.jpg", "b/2/", "c/3/", "neuf/4/n.jpg"}));
    ExpectCommeAvant();
}

TEST_F(SaisieAuSecours, OfManyOnlyWhatIsTypedChanges)
{
    table.Selectionner(1, 2, true);
    Taper(Cible::Selection, {"", "tous"});
    LaisserAuSecours(cadre);
    EXPECT_EQ(Copie(), QStringList({"a/tous/a.jpg", "b/tous/", "c/3/"}));
    Taper(Cible::Selection, {"", ""}, u"n.jpg"_s);
    LaisserAuSecours(cadre);
    EXPECT_EQ(Copie(), QStringList({"a/1/n.jpg", "b/2/n.jpg", "c/3/"}));
    ExpectCommeAvant();
}

TEST_F(SaisieAuSecours, WhatNoLineCanHoldIsReplaced)
{
    Taper(Cible::Ajout, {u"x|y\nIt9=z"_s, u"u\r\nv\u2028w"_s}, u"n|\n.jpg"_s);
    LaisserAuSecours(cadre);
    EXPECT_EQ(Copie(), QStringList({"a/1/a.jpg", "b/2/", "c/3/", u"x¦y It9=z/u v w/n¦ .jpg"_s}));
}

TEST_F(SaisieAuSecours, TheTextsOfTheColumnsAreCopiedToo)
{
    doc.Saisie = [] {
        return std::optional(SaisieEnCours{Cible::Ajout, 0, {u"x"_s}, {u"rock|jazz"_s, u"Ida\nb"_s}, {}});
    };
    LaisserAuSecours(cadre);
    const auto texte = LireTexteDeSecours(FichierDeSecours(doc.TmpFolder));
    ASSERT_TRUE(texte);
    DocumentDeTest lu;
    ASSERT_TRUE(ChargerTexteExact(lu.doc, *texte));
    EXPECT_EQ(lu.table.ColumnHeaders(1).Tag(), u"rock|jazz"_s);
    EXPECT_EQ(lu.table.ColumnHeaders(2).Tag(), u"Ida b"_s);
    EXPECT_EQ(table.ColumnHeaders(1).Tag(), QString());
}

TEST_F(SaisieAuSecours, AnEditorThatWouldWriteNothingLeavesNothing)
{
    doc.Saisie = [] { return std::optional<SaisieEnCours>(); };
    const QString dossierDuDocument = doc.TmpFolder;
    LaisserAuSecours(cadre);
    EXPECT_FALSE(QFileInfo::exists(dossierDuDocument));
    EXPECT_FALSE(QFileInfo::exists(FichierDeSecours(dossierDuDocument)));
}

TEST_F(SaisieAuSecours, TheChangesOfTheTableAreInTheSameCopy)
{
    table.ListItems(3).SetText(u"cc"_s);
    doc.IlFautSauver = true;
    Battre();
    EXPECT_EQ(Copie(), QStringList({"a/1/a.jpg", "b/2/", "cc/3/"})) << "the usual one has what was validated";
    Taper(Cible::Entree, {"bb", "2"});
    LaisserAuSecours(cadre);
    EXPECT_EQ(Copie(), QStringList({"a/1/a.jpg", "bb/2/", "cc/3/"}));
}

TEST_F(SaisieAuSecours, WhereNobodyCanBeAskedTheCopyStaysUntilTheUserGoesOn)
{
    // What was saved is on the disk, and the folder tells whose it is.
    for (int i = 0; i < 6000 && !LireIdentite(FichierDeSecours(doc.TmpFolder)); ++i) {
        Battre();
        QThread::msleep(10);
    }
    Taper(Cible::Entree, {"bb", "2"});
    EXPECT_TRUE(PeutFinirLaSession(cadre, false));
    doc.Saisie = nullptr; // the end of the session closes the dialog
    Battre();
    EXPECT_EQ(Copie(), QStringList({"a/1/a.jpg", "bb/2/", "c/3/"}));
    ExpectCommeAvant();
    LaisserAuSecours(cadre);
    EXPECT_TRUE(Copie()) << "the process ends now";

    ReprendreLaSession(cadre);
    // The copy stays until what was saved is on the disk, which may be busy for long.
    for (int i = 0; i < 6000 && Copie(); ++i) {
        Battre();
        QThread::msleep(10);
    }
    EXPECT_FALSE(Copie()) << "the dialog was cancelled, and the document is as it was saved";
    ExpectCommeAvant();
}

TEST_F(SaisieAuSecours, ItIsAskedAboutAndTheTableIsSavedWithoutIt)
{
    Taper(Cible::Entree, {"bb", "2"});
    reponses.Preparer(RepOui);
    EXPECT_TRUE(PeutFinirLaSession(cadre, true));
    ExpectCommeAvant();
    EXPECT_EQ(Copie(), QStringList({"a/1/a.jpg", "bb/2/", "c/3/"}));
    EXPECT_TRUE(PeutFinirLaSession(cadre, true)) << "nobody is asked twice";

    LaisserAuSecours(cadre);
    const std::optional<IdentiteDeSecours> identite = LireIdentite(FichierDeSecours(doc.TmpFolder));
    ASSERT_TRUE(identite);
    EXPECT_EQ(identite->base, EmpreinteDuTexte(doc.TmpFolder)) << "it continues what was saved";
}

TEST_F(SaisieAuSecours, GivenUpItIsInNoCopyUntilTheSessionGoesOn)
{
    Taper(Cible::Entree, {"bb", "2"});
    reponses.Preparer(RepNon);
    EXPECT_TRUE(PeutFinirLaSession(cadre, true));
    EXPECT_TRUE(PeutFinirLaSession(cadre, true)) << "nobody is asked twice";
    ExpectCommeAvant();
    EXPECT_FALSE(Copie());
    Battre();
    EXPECT_FALSE(Copie());

    ReprendreLaSession(cadre);
    ExpectCommeAvant();
    EXPECT_TRUE(PeutFinirLaSession(cadre, false));
    EXPECT_TRUE(Copie());
}

TEST_F(SaisieAuSecours, GivenUpWithTheChangesOfTheTableItLeavesNoFolder)
{
    table.ListItems(3).SetText(u"cc"_s);
    doc.IlFautSauver = true;
    Taper(Cible::Entree, {"bb", "2"});
    EXPECT_TRUE(PeutFinirLaSession(cadre, false));
    reponses.Preparer(RepNon);
    EXPECT_TRUE(PeutFinirLaSession(cadre, true));
    const QString dossierDuDocument = doc.TmpFolder;
    LaisserAuSecours(cadre);
    EXPECT_FALSE(QFileInfo::exists(dossierDuDocument));
    EXPECT_FALSE(QFileInfo::exists(FichierDeSecours(dossierDuDocument)));
}

TEST_F(SaisieAuSecours, AnEndThatIsRefusedChangesNothing)
{
    FenetreDeTest& autre = dynamic_cast<FenetreDeTest&>(cadre.NouvelleFenetre());
    autre.myqrt.IlFautSauver = true;
    Taper(Cible::Entree, {"bb", "2"});
    for (const int reponse : {RepNon, RepOui}) {
        reponses.Preparer(reponse);
        reponses.Preparer(RepAnnuler); // for the other one
        EXPECT_FALSE(PeutFinirLaSession(cadre, true));
        ExpectCommeAvant();
        EXPECT_FALSE(Copie());
    }
    reponses.Preparer(RepAnnuler);
    EXPECT_FALSE(PeutFinirLaSession(cadre, true));
    ExpectCommeAvant();
    autre.myqrt.IlFautSauver = false;
}

TEST_F(SaisieAuSecours, ARefusalAfterAnEndWithoutQuestionsLetsTheCopiesGoOn)
{
    Taper(Cible::Entree, {"bb", "2"});
    EXPECT_TRUE(PeutFinirLaSession(cadre, false));
    table.ListItems(3).SetText(u"cc"_s);
    doc.IlFautSauver = true;
    reponses.Preparer(RepAnnuler);
    EXPECT_FALSE(PeutFinirLaSession(cadre, true));
    doc.Saisie = nullptr;
    Battre();
    EXPECT_EQ(Copie(), QStringList({"a/1/a.jpg", "b/2/", "cc/3/"}));
}

TEST_F(SaisieAuSecours, TheNextStartOffersItAndOpensIt)
{
    Taper(Cible::Ajout, {"Пётр | Wolf", "4"});
    LaisserAuSecours(cadre);
    // Another process finds it: nobody holds it there.
    const QString laisse = TempFolder + u"/cat501"_s;
    ASSERT_TRUE(QDir().mkpath(laisse));
    ASSERT_TRUE(QDir().rename(doc.TmpFolder + u"Zelvane.qrt"_s, laisse + u"/Zelvane.qrt"_s));
    ASSERT_TRUE(QDir().rename(FichierDeSecours(doc.TmpFolder), laisse + u".secours"_s));
    const std::vector<DossierLaisse> laisses = ChercherLaisses();
    ASSERT_EQ(laisses.size(), 1);
    EXPECT_TRUE(laisses[0].modifie);
    EXPECT_EQ(laisses[0].entrees, 4);
    ASSERT_TRUE(OuvrirLaisse(cadre, laisses[0]));
    EXPECT_EQ(ColonneDe(cadre.fenetres.back()->table, 1), QStringList({"a", "b", "c", u"Пётр ¦ Wolf"_s}));
}
