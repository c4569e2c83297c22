#include "catalogue/documents/CopieDeSecours.h"

#include "base/DossiersTemp.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/LectureQrt.h"
#include "support/ArchiveDeTest.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"
#include "support/TableDeTest.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <gtest/gtest.h>

#include <algorithm>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using Etat = EcritureDeSecours::Etat;

namespace {

/// A document whose folder is one of the program's.
class CopieDeSecours : public testing::Test
{
protected:
    CopieDeSecours()
    {
        doc.TmpFolder = CreerDossierTemp();
        doc.SetCheminReel(u"/home/é/a=b%\r\n.qrt"_s);
        doc.FileType = u"2"_s;
        MettreColonnes(table, {"Titre", "Prêté"});
        AjouterEntrees(table, {{"Été", "Ève"}, {"Пётр и волк", ""}});
    }

    QString Copie() const { return FichierDeSecours(doc.TmpFolder); }
    QString EnCours() const { return Copie() + u'~'; }
    static QByteArray Contenu(const QString& chemin)
    {
        QFile fichier(chemin);
        return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
    }
    Etat Ecrire() { return EcritureDeSecours(doc, u"a.qrt"_s).Achever(); }

    Categorie doc;
    MyLV& table = doc.Table;
};

/// Entries that lie in blocks of their own, as edited ones do.
void Remplir(MyLV& table, int nombre)
{
    AjoutsDansTable ajouts(table);
    for (int i = 1; i <= nombre; ++i)
        table.ListItems.Add(0, QString(), u"Titre de l'album numéro %1"_s.arg(i));
}

} // namespace

TEST_F(CopieDeSecours, HoldsTheWholeTableAndWhoseItIs)
{
    doc.dependantcol = 2;
    ASSERT_EQ(Ecrire(), Etat::Faite);

    const std::optional<IdentiteDeSecours> identite = LireIdentite(Copie());
    ASSERT_TRUE(identite);
    EXPECT_EQ(identite->nom, "a.qrt");
    EXPECT_EQ(identite->chemin, doc.CheminReel());
    EXPECT_EQ(identite->type, "2");
    EXPECT_EQ(identite->processus, QCoreApplication::applicationPid());
    EXPECT_EQ(identite->base, "") << "the folder has no text yet";
    EXPECT_TRUE(identite->texte);

    DocumentDeTest autre;
    ASSERT_TRUE(ChargerTexteExact(autre.doc, LireTexteDeSecours(Copie()).value()));
    EXPECT_EQ(ColonneDe(autre.table, 1), ColonneDe(table, 1));
    EXPECT_EQ(ColonneDe(autre.table, 2), ColonneDe(table, 2));
    EXPECT_EQ(autre.doc.dependantcol, 2);
    EXPECT_FALSE(QFileInfo::exists(EnCours()));
}

TEST_F(CopieDeSecours, IsWholeAlsoWhereNoThreadCanBeHad)
{
    const QByteArray lieux[] = {QFile::encodeName(TempFolder), QFile::encodeName(doc.TmpFolder),
                                QFile::encodeName(PlateformeDeTest::Courante().dossier.Chemin())};
    const int resultat = DansUnEnfant([&] {
        for (const QByteArray& lieu : lieux) {
            if (geteuid() == 0 && chown(lieu.constData(), 65534, 65534) != 0)
                return 2;
        }
        const rlimit aucun{0, 0};
        if (setrlimit(RLIMIT_NPROC, &aucun) != 0 || (geteuid() == 0 && setuid(65534) != 0)) // root has no limit
            return 3;
        return Ecrire() == Etat::Faite && LireTexteDeSecours(Copie()) ? 0 : 1;
    });
    EXPECT_EQ(resultat, 0);
}

TEST_F(CopieDeSecours, OfARecoveredDocumentTellsTheFileThatItCameFrom)
{
    doc.SetCheminReel(QString());
    doc.CheminAvantSecours = u"/home/moi/disques.qrt"_s;
    ASSERT_EQ(Ecrire(), Etat::Faite);
    EXPECT_EQ(LireIdentite(Copie())->chemin, "/home/moi/disques.qrt") << "also after the next crash";
    doc.SetCheminReel(u"/home/moi/autre.qrt"_s);
    ASSERT_EQ(Ecrire(), Etat::Faite);
    EXPECT_EQ(LireIdentite(Copie())->chemin, "/home/moi/autre.qrt");
}

TEST_F(CopieDeSecours, NeverTouchesTheFolder)
{
    ASSERT_EQ(Ecrire(), Etat::Faite);
    EXPECT_TRUE(QDir(doc.TmpFolder).isEmpty());
}

TEST_F(CopieDeSecours, KnowsTheTextThatItCameAfter)
{
    const auto ecrireTexte = [this](const QByteArray& texte) {
        QFile fichier(doc.TmpFolder + u"Zelvane.qrt"_s);
        EXPECT_TRUE(fichier.open(QIODevice::WriteOnly) && fichier.write(texte) == texte.size());
    };
    ecrireTexte("un");
    ASSERT_EQ(Ecrire(), Etat::Faite);
    EXPECT_EQ(LireIdentite(Copie())->base, EmpreinteDuTexte(doc.TmpFolder));
    ecrireTexte("deux");
    EXPECT_NE(LireIdentite(Copie())->base, EmpreinteDuTexte(doc.TmpFolder));
}

TEST_F(CopieDeSecours, WithoutATextItTellsWhoseFolderItIs)
{
    ASSERT_EQ(Ecrire(), Etat::Faite);
    ASSERT_TRUE(EcrireIdentite(doc, u"b.qrt"_s));

    EXPECT_EQ(LireIdentite(Copie())->nom, "b.qrt");
    EXPECT_FALSE(LireIdentite(Copie())->texte);
    EXPECT_FALSE(LireTexteDeSecours(Copie()));
}

TEST_F(CopieDeSecours, IsTheUsersAlone)
{
    for (const bool texte : {true, false}) {
        texte ? void(Ecrire()) : void(EcrireIdentite(doc, u"a"_s));
        struct stat etat
        {
        };
        ASSERT_EQ(stat(QFile::encodeName(Copie()).constData(), &etat), 0);
        EXPECT_EQ(etat.st_mode & 0777, 0600u);
    }
}

TEST_F(CopieDeSecours, StandsBesideItsPlaceUntilItIsWhole)
{
    ASSERT_EQ(Ecrire(), Etat::Faite);
    const QByteArray avant = Contenu(Copie());
    table.ListItems(1).SetText("autre");
    {
        EcritureDeSecours ecriture(doc, u"a.qrt"_s);
        EXPECT_EQ(ecriture.Avancer(), Etat::EnCours);
        EXPECT_TRUE(QFileInfo::exists(EnCours()));
        EXPECT_EQ(Contenu(Copie()), avant);
    }
    EXPECT_FALSE(QFileInfo::exists(EnCours())) << "one that is given up leaves nothing";
    EXPECT_EQ(Contenu(Copie()), avant);
}

TEST_F(CopieDeSecours, WhatAKilledRunLeftAtItsPlaceIsNoHindranceAndALinkIsNotFollowed)
{
    const DossierDeTest& dossier = PlateformeDeTest::Courante().dossier;
    dossier.Ecrire("precious", "x");
    ASSERT_TRUE(QFile::link(dossier.Fichier("precious"), EnCours()));
    EXPECT_EQ(Ecrire(), Etat::Faite);
    EXPECT_EQ(dossier.Lire("precious"), "x");
}

TEST_F(CopieDeSecours, AFullDiskLeavesTheCopyBefore)
{
    Remplir(table, 5000);
    ASSERT_EQ(Ecrire(), Etat::Faite);
    const QByteArray avant = Contenu(Copie());
    table.ListItems(1).SetText("autre");

    EXPECT_EQ(DansUnEnfant([this] {
                  LimiterTailleDesFichiers(50000);
                  return Ecrire() == Etat::Manquee ? 0 : 1;
              }),
              0);

    EXPECT_EQ(Contenu(Copie()), avant);
    EXPECT_FALSE(QFileInfo::exists(EnCours()));
}

TEST_F(CopieDeSecours, AFolderThatIsGoneIsAFailure)
{
    QDir(TempFolder).removeRecursively();
    EXPECT_EQ(Ecrire(), Etat::Manquee);
    EXPECT_FALSE(EcrireIdentite(doc, u"a"_s));
}

TEST_F(CopieDeSecours, ATextThatIsNotWholeIsNone)
{
    ASSERT_EQ(Ecrire(), Etat::Faite);
    const QByteArray entier = Contenu(Copie());
    for (qsizetype taille = 0; taille < entier.size(); ++taille) {
        QFile fichier(Copie());
        ASSERT_TRUE(fichier.open(QIODevice::WriteOnly) && fichier.write(entier.first(taille)) == taille);
        fichier.close();
        EXPECT_FALSE(LireIdentite(Copie())) << taille;
        EXPECT_FALSE(LireTexteDeSecours(Copie())) << taille;
    }
}

TEST_F(CopieDeSecours, SomethingElseAtItsPlaceIsNone)
{
    EXPECT_FALSE(LireIdentite(Copie())) << "nothing at all";
    const DossierDeTest& dossier = PlateformeDeTest::Courante().dossier;
    EXPECT_FALSE(LireIdentite(dossier.Chemin())) << "a folder";
    EXPECT_FALSE(LireIdentite(dossier.Ecrire("f", "[Zelvane.secours]\r\nNom=a\r\nAutre=b\r\n")));
    EXPECT_FALSE(LireIdentite(dossier.Ecrire("f", "[Zelvane.secours]\r\nNom")));
}

TEST_F(CopieDeSecours, OfAMillionEntriesNoStepTakesMoreThanAPiece)
{
    Remplir(table, 1'000'000);
    EcritureDeSecours ecriture(doc, u"a.qrt"_s);
    qint64 ecrit = 0, plusLong = 0;
    while (ecriture.Avancer() == Etat::EnCours) {
        while (ecriture.DisqueOccupe())
            QThread::usleep(200);
        const qint64 taille = QFileInfo(EnCours()).size();
        plusLong = std::max(plusLong, taille - ecrit);
        ecrit = taille;
    }
    EXPECT_GT(ecrit, qint64(20) << 20);
    EXPECT_LT(plusLong, qint64(2) << 20);
    EXPECT_TRUE(LireTexteDeSecours(Copie())->endsWith("It1000002=Titre de l'album numéro 1000000||\r\n"));
}
