// A running program keeps its folders from those who delete what has long not been used.
#include "catalogue/documents/FraicheurDesDossiers.h"

#include "base/DossiersTemp.h"
#include "catalogue/archive/ccZip.h"
#include "catalogue/archive/ccZipDescripteur.h"
#include "catalogue/documents/CopieDeSecours.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/EcritureQrt.h"
#include "catalogue/texte/ExtraireArchive.h"
#include "catalogue/texte/LectureQrt.h"
#include "support/ArchiveDeTest.h"
#include "support/CadreDeTest.h"
#include "support/FileDeReponses.h"
#include "support/TableDeTest.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

constexpr time_t Jadis = 1'000'000'000;

class Fraicheur : public testing::Test
{
protected:
    Fraicheur()
    {
        cadre.NouvelleFenetre();
        doc = &cadre.fenetres.back()->myqrt;
        doc->TmpFolder = CreerDossierTemp();
        doc->FileType = "2";
        TexteDeCatalogue texte;
        texte.entrees = {"un||a.jpg"};
        EntreeZip image{"a.jpg", QByteArray(1000, 'n')};
        image.methode = 8;
        image.donnees = "\x01\xE8\x03\x17\xFC" + image.contenu; // a stream that nobody else would write
        doc->SetCheminReel(
            ailleurs.Ecrire("mes.qrt", FaireArchive({{"Zelvane.qrt", texte.Texte()}, image, {"b.jpg", "bb", true}})));
        EXPECT_TRUE(ExtraireArchive(*doc));
        ChargerFichier(*doc);
        EXPECT_TRUE(EcrireIdentite(*doc, "mes"));
    }

    QString Dans(const QString& nom) const { return doc->TmpFolder + nom; }
    static struct stat Etat(const QString& chemin)
    {
        struct stat etat = {};
        EXPECT_EQ(stat(QFile::encodeName(chemin).constData(), &etat), 0);
        return etat;
    }
    static bool EstFrais(const QString& chemin) { return Etat(chemin).st_atim.tv_sec != Jadis; }
    /// Nobody has read the file since long ago. What is known of it is known with that.
    void Vieillir(const QString& chemin, time_t acces = Jadis) const
    {
        const timespec dates[2] = {{acces, 0}, {0, UTIME_OMIT}};
        ASSERT_EQ(utimensat(AT_FDCWD, QFile::encodeName(chemin).constData(), dates, 0), 0);
        const auto connu = doc->Archive->fichiers.find(QFile::encodeName(QFileInfo(chemin).fileName()));
        if (connu != doc->Archive->fichiers.end())
            connu->etat = *zipinterne::EtatDe(chemin);
    }
    QStringList ToutCeQuiTient() const
    {
        return {doc->TmpFolder.chopped(1), Dans("a.jpg"), Dans("b.jpg"), Dans("Zelvane.qrt"),
                FichierDeSecours(doc->TmpFolder)};
    }
    void Tourner()
    {
        while (fraicheur.Avancer(cadre, heure)) {
        }
    }
    int TailleDansLArchive() const
    {
        return Lancer("/usr/bin/python3", {"-c",
                                           "import sys, zipfile\n"
                                           "print(zipfile.ZipFile(sys.argv[1]).getinfo('a.jpg').compress_size)",
                                           doc->CheminReel()})
            .toInt();
    }

    FileDeReponses messages;
    DossierDeTest ailleurs;
    CadreDeTest cadre;
    Categorie* doc;
    FraicheurDesDossiers fraicheur;
    qint64 heure = QDateTime::currentMSecsSinceEpoch();
};

} // namespace

TEST_F(Fraicheur, WhatWasExtractedHasJustBeenUsedWhateverItsDate)
{
    EXPECT_EQ(QFileInfo(Dans("a.jpg")).lastModified().date().year(), 2001);
    EXPECT_GT(Etat(Dans("a.jpg")).st_atim.tv_sec, Etat(Dans("a.jpg")).st_mtim.tv_sec);
}

TEST_F(Fraicheur, FoldersFilesAndRescueCopiesAreDatedAndWritesAreNot)
{
    for (const QString& chemin : ToutCeQuiTient())
        Vieillir(chemin);
    const QDateTime ecrit = QFileInfo(Dans("a.jpg")).lastModified();
    const std::optional<QByteArray> empreinte = EmpreinteDuTexte(doc->TmpFolder);
    Tourner();
    for (const QString& chemin : ToutCeQuiTient())
        EXPECT_TRUE(EstFrais(chemin)) << chemin.toStdString();
    EXPECT_EQ(QFileInfo(Dans("a.jpg")).lastModified(), ecrit);
    EXPECT_EQ(EmpreinteDuTexte(doc->TmpFolder), empreinte) << "a rescue copy is known by it";
}

TEST_F(Fraicheur, OnceAnHour)
{
    Tourner();
    for (const QString& chemin : ToutCeQuiTient())
        Vieillir(chemin);
    heure += FraicheurDesDossiers::Intervalle - 1;
    Tourner();
    EXPECT_FALSE(EstFrais(Dans("a.jpg")));
    heure += 1;
    Tourner();
    EXPECT_TRUE(EstFrais(Dans("a.jpg")));
}

TEST_F(Fraicheur, AClockThatIsSetBackStopsNothing)
{
    Tourner();
    Vieillir(Dans("a.jpg"));
    heure -= 2 * FraicheurDesDossiers::Intervalle;
    Tourner();
    EXPECT_TRUE(EstFrais(Dans("a.jpg")));
}

TEST_F(Fraicheur, WhatWasUsedWithinTheHourIsLeftAlone)
{
    const auto acces = static_cast<time_t>(heure / 1000 - 3000);
    Vieillir(Dans("a.jpg"), acces);
    Tourner();
    EXPECT_EQ(Etat(Dans("a.jpg")).st_atim.tv_sec, acces);
}

TEST_F(Fraicheur, UnchangedFilesStayKnownAndAreNotCompressedAgain)
{
    for (const QString& chemin : ToutCeQuiTient())
        Vieillir(chemin);
    const int64_t change = doc->Archive->fichiers.value("a.jpg").etat.change;
    Tourner();
    EXPECT_NE(doc->Archive->fichiers.value("a.jpg").etat.change, change);
    ASSERT_TRUE(EcrireFichier(*doc, false));
    EXPECT_EQ(TailleDansLArchive(), 1005) << "as they lay in the old archive";
}

TEST_F(Fraicheur, AFileThatHadChangedIsNotTakenForTheKnownOne)
{
    for (const QString& chemin : ToutCeQuiTient())
        Vieillir(chemin);
    QFile fichier(Dans("a.jpg"));
    ASSERT_TRUE(fichier.open(QIODevice::ReadWrite) && fichier.write(QByteArray(1000, 'X')) == 1000);
    fichier.close();
    // Its date is set back, so that the change of the node alone tells.
    const timespec dates[2] = {{Jadis, 0}, {QFileInfo(Dans("b.jpg")).lastModified().toSecsSinceEpoch(), 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, QFile::encodeName(Dans("a.jpg")).constData(), dates, 0), 0);
    Tourner();
    EXPECT_TRUE(EstFrais(Dans("a.jpg")));
    ASSERT_TRUE(EcrireFichier(*doc, false));
    EXPECT_EQ(Lancer("unzip", {"-p", doc->CheminReel(), "a.jpg"}), QByteArray(1000, 'X'));
}

TEST_F(Fraicheur, WhileItsArchiveIsWrittenADocumentIsLeftForLater)
{
    for (const QString& chemin : ToutCeQuiTient())
        Vieillir(chemin);
    doc->EnEcriture = true;
    Tourner();
    EXPECT_FALSE(EstFrais(Dans("a.jpg")));
    doc->EnEcriture = false;
    Tourner();
    EXPECT_TRUE(EstFrais(Dans("a.jpg")));
}

TEST_F(Fraicheur, LinksAreNotFollowed)
{
    const QString dehors = ailleurs.Ecrire("dehors", "x");
    Vieillir(dehors);
    ASSERT_TRUE(QFile::link(dehors, Dans("lien")));
    Tourner();
    EXPECT_FALSE(EstFrais(dehors));
}

TEST_F(Fraicheur, AFolderHeldWithoutAWindowIsKeptToo)
{
    const QString autre = CreerDossierTemp();
    Vieillir(autre.chopped(1));
    Tourner();
    EXPECT_TRUE(EstFrais(autre.chopped(1)));
    SupprimerDossier(autre, true);
}

TEST_F(Fraicheur, AClosedDocumentIsNoMatter)
{
    cadre.fenetres.back()->Decharger();
    Tourner();
    EXPECT_TRUE(cadre.fenetres.empty());
}
