// How a document's window closes.
#include "Form1EnFenetre.h"

#include "base/DossiersTemp.h"
#include "catalogue/documents/CopieDeSecours.h"
#include "catalogue/documents/SecoursDesDocuments.h"

using namespace Qt::StringLiterals;

TEST_F(Form1Test, AnUnchangedDocumentClosesWithoutAQuestion)
{
    Ouvrir().Decharger();
    EXPECT_TRUE(cadre.Documents().empty());
    EXPECT_TRUE(reponses.Affiches().isEmpty());
}

TEST_F(Form1Test, EachOfTheUsualKeysClosesTheDocumentInFront)
{
    for (const QKeySequence& touches : {QKeySequence(u"Ctrl+W"_s), QKeySequence(u"Ctrl+F4"_s)}) {
        Ouvrir();
        QTest::keySequence(&cadre, touches);
        EXPECT_TRUE(cadre.Documents().empty()) << touches.toString().toStdString();
    }
}

TEST_F(Form1Test, AChangedDocumentStaysWhenTheQuestionIsCancelled)
{
    Form1& fenetre = Ouvrir();
    fenetre.myqrt.IlFautSauver = true;
    reponses.Preparer(RepAnnuler);
    fenetre.Decharger();
    EXPECT_EQ(cadre.Documents().size(), 1);
    EXPECT_TRUE(QFile::exists(fenetre.myqrt.TmpFolder + u"Zelvane.qrt"_s));
    fenetre.myqrt.IlFautSauver = false;
}

TEST_F(Form1Test, AChangedDocumentIsSavedWhenTheUserSaysSo)
{
    Form1& fenetre = Ouvrir();
    fenetre.myqrt.MyLV->ListItems(1).SetText(u"Aladdin Sane"_s);
    fenetre.myqrt.IlFautSauver = true;
    reponses.Preparer(RepOui);
    fenetre.Decharger();
    EXPECT_TRUE(cadre.Documents().empty());
    EXPECT_TRUE(dossier.Lire(u"disques.qrt"_s).contains("Aladdin Sane"));
}

TEST_F(Form1Test, ChangesCanBeGivenUp)
{
    Form1& fenetre = Ouvrir();
    const QString temporaire = fenetre.myqrt.TmpFolder;
    fenetre.myqrt.MyLV->ListItems(1).SetText(u"Aladdin Sane"_s);
    fenetre.myqrt.IlFautSauver = true;
    reponses.Preparer(RepNon);
    fenetre.Decharger();
    EXPECT_TRUE(cadre.Documents().empty());
    EXPECT_FALSE(dossier.Lire(u"disques.qrt"_s).contains("Aladdin Sane"));
    EXPECT_FALSE(QFile::exists(temporaire));
}

TEST_F(Form1Test, WhatWasBeingTypedAtTheEndOfTheSessionStaysForTheNextStart)
{
    Form1& fenetre = Ouvrir();
    const QString temporaire = fenetre.myqrt.TmpFolder;
    fenetre.myqrt.Saisie = [] {
        return std::optional(SaisieEnCours{SaisieEnCours::Cible::Ajout, 0, {u"x"_s}, {}, {}});
    };
    EXPECT_TRUE(PeutFinirLaSession(cadre, false));
    fenetre.myqrt.Saisie = nullptr;
    fenetre.Decharger();
    EXPECT_TRUE(cadre.Documents().empty());
    EXPECT_TRUE(LireTexteDeSecours(FichierDeSecours(temporaire)));
    EXPECT_TRUE(QFile::exists(temporaire + u"Zelvane.qrt"_s));
    SupprimerDossier(temporaire, true);
}

TEST_F(Form1Test, ADocumentDoesNotCloseDuringASave)
{
    Form1& fenetre = Ouvrir();
    fenetre.myqrt.IlFautSauver = true;
    EnCoursDeSauvegarde = true;
    fenetre.Decharger();
    EXPECT_EQ(cadre.Documents().size(), 1);
    EXPECT_TRUE(QFile::exists(fenetre.myqrt.TmpFolder));
    EXPECT_TRUE(reponses.Affiches().isEmpty()) << "no question is asked meanwhile";
    fenetre.myqrt.IlFautSauver = false;
}

TEST_F(Form1Test, OneDocumentThatRefusesKeepsTheProgram)
{
    Form1& fenetre = Ouvrir();
    fenetre.myqrt.IlFautSauver = true;
    reponses.Preparer(RepAnnuler);
    Commande(fenetre, u"mQuitter"_s).trigger();
    EXPECT_TRUE(cadre.isVisible());
    EXPECT_EQ(cadre.Documents().size(), 1);
    fenetre.myqrt.IlFautSauver = false;
}

TEST_F(Form1Test, AfterTheOlderFormTheWindowStaysUntilASaveUnderAnotherNameHasEnded)
{
    Form1& fenetre = Ouvrir();
    fichiers.Preparer({dossier.Fichier(u"vieux.qrt"_s)}, 3);
    reponses.Preparer(RepNon);
    Commande(fenetre, u"mEnregistrerSous"_s).trigger();
    EXPECT_TRUE(dossier.Existe(u"vieux.qrt"_s));
    Commande(fenetre, u"mEnregistrer"_s).trigger();
    EXPECT_EQ(reponses.Cles().last(), "msg63");
    fenetre.Decharger();
    EXPECT_EQ(cadre.Documents().size(), 1);
    EXPECT_TRUE(fenetre.findChild<QWidget*>(u"wait"_s)->isVisible());

    fichiers.Preparer({dossier.Fichier(u"neuf.qrt"_s)}, 2);
    Commande(fenetre, u"mEnregistrerSous"_s).trigger();
    EXPECT_EQ(fenetre.Caption(), "neuf.qrt");
    fenetre.Decharger();
    EXPECT_TRUE(cadre.Documents().empty());
}
