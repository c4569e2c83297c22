// Files and folders of a document that cannot be read: they must not pass for missing or empty ones.
#include "catalogue/archive/FichierDuDossier.h"

#include "catalogue/documents/Commentaires.h"
#include "catalogue/texte/EcritureQrt.h"
#include "catalogue/texte/LectureQrt.h"
#include "support/ArchiveDeTest.h"
#include "support/FileDeReponses.h"
#include "support/TableDeTest.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Opens, and then gives an error instead of bytes.
const QString Illisible = QStringLiteral("/proc/self/mem");

class FichiersIllisibles : public testing::Test
{
protected:
    FichiersIllisibles()
    {
        MettreColonnes(d.table, {"Titre", "Prêté"});
        AjouterEntrees(d.table, {{"日本", ""}});
        d.doc.SetCheminReel(dossier.Ecrire("mes.qrt", "ancien"));
        d.doc.FileType = "2";
    }

    /// Runs as a user who may write into the document's folder and not list it.
    int SansListe(const std::function<int()>& action) const
    {
        const QByteArray tmp = d.doc.TmpFolder.toLocal8Bit(), cible = dossier.Chemin().toLocal8Bit();
        return DansUnEnfant([&] {
            const bool root = geteuid() == 0; // who may list everything
            if (root && (chown(tmp.constData(), 65534, 65534) != 0 || chown(cible.constData(), 65534, 65534) != 0))
                return 2;
            if (chmod(tmp.constData(), 0300) != 0 || (root && setuid(65534) != 0))
                return 3;
            const int resultat = action();
            return chmod(tmp.constData(), 0700) == 0 ? resultat : 4;
        });
    }

    FileDeReponses messages;
    DocumentDeTest d;
    DossierDeTest dossier;
};

} // namespace

TEST_F(FichiersIllisibles, WhatCannotBeReadHasNoBytesAndIsNotEmptyEither)
{
    EXPECT_EQ(LireFichier(Illisible), std::nullopt);
    EXPECT_EQ(LireSIlExiste(Illisible), std::nullopt);
    EXPECT_EQ(LireSIlExiste(dossier.Fichier("rien")), QByteArray());
    EXPECT_EQ(LireSIlExiste(dossier.Fichier("mes.qrt")), "ancien");
}

TEST_F(FichiersIllisibles, AnExactTextThatCannotBeReadIsNoReasonToShowTheOtherOne)
{
    ASSERT_TRUE(EcrireFichier(d.doc, false));
    ASSERT_TRUE(ChargerDossier(d.doc));
    QFile::remove(d.dossier.Fichier("Zelvane.utf8"));
    QFile::link(Illisible, d.dossier.Fichier("Zelvane.utf8"));
    EXPECT_FALSE(ChargerDossier(d.doc));
}

TEST_F(FichiersIllisibles, ASaveDoesNotDropACommentThatItCannotRead)
{
    QFile::link(Illisible, d.dossier.Fichier("Zelvane.utf8"));
    EXPECT_FALSE(EcrireFichier(d.doc, false));
    EXPECT_EQ(dossier.Lire("mes.qrt"), "ancien");
    EXPECT_FALSE(Commentaires::Ecrire(d.doc.TmpFolder, "Lu"));
    EXPECT_FALSE(d.dossier.Existe("Zelvane.txt"));
}

TEST_F(FichiersIllisibles, WhereTheTextCannotTakeItsPlaceTheExactOneGoesBack)
{
    ASSERT_TRUE(QDir().mkpath(d.dossier.Fichier("Zelvane.qrt/plein")));
    EXPECT_FALSE(EcrireFichier(d.doc, false));
    EXPECT_FALSE(d.dossier.Existe("Zelvane.utf8"));
    EXPECT_EQ(dossier.Lire("mes.qrt"), "ancien");
}

TEST_F(FichiersIllisibles, ASaveOfAFolderThatCannotBeListedLeavesTheOldFile)
{
    d.dossier.Ecrire("a.jpg", "image");
    EXPECT_EQ(SansListe([&] { return EcrireFichier(d.doc, false) ? 1 : 0; }), 0);
    EXPECT_EQ(dossier.Lire("mes.qrt"), "ancien");
}

TEST_F(FichiersIllisibles, ImagesOfAFolderThatCannotBeListedAreAskedForOneByOne)
{
    d.dossier.Ecrire("été.jpg", "image");
    TexteDeCatalogue texte;
    texte.entrees = {"un||été.jpg", "deux||rien.jpg", "trois||../été.jpg"};
    d.dossier.Ecrire("Zelvane.qrt", texte.Texte());
    const QString fichier = d.dossier.Fichier("Zelvane.qrt");
    ASSERT_EQ(chmod(fichier.toLocal8Bit().constData(), 0644), 0);
    EXPECT_EQ(SansListe([&] {
                  ChargerFichier(d.doc);
                  QStringList icones;
                  for (int i = 1; i <= d.doc.ItemsCount(); ++i)
                      icones.append(d.table.ListItems(i).SmallIcon());
                  return icones == QStringList({"icoerror", "icoerror", "ico"}) ? 0 : 1;
              }),
              0);
}
