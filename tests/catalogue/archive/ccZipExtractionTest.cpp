#include "catalogue/archive/ccZip.h"
#include "support/ArchiveDeTest.h"
#include "support/DossierDeTest.h"
#include "support/Impression.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

class ArchiveExtraite : public testing::Test
{
protected:
    ArchiveExtraite() { QDir().mkpath(Cible()); }

    /// The target lies one level below a folder that must stay as it is.
    QString Cible() const { return monde.Fichier("cible/"); }
    int Extraire(const QByteArray& archive, const QString& masque = QString())
    {
        zip.Init(ailleurs.Ecrire("essai.qrt", archive));
        return zip.Decompress(Cible(), masque);
    }
    int Extraire(const QList<EntreeZip>& entrees) { return Extraire(FaireArchive(entrees)); }

    QStringList Extraits() const
    {
        return QDir(Cible()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                                       QDir::Name);
    }
    QByteArray Lire(const QString& nom) const { return monde.Lire("cible/" + nom); }
    /// Nothing lies beside the target.
    bool RienAutour() const
    {
        return QDir(monde.Chemin()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot) ==
               QStringList("cible");
    }

    DossierDeTest monde;
    DossierDeTest ailleurs;
    ccZip zip;
};

constexpr uint32_t LienSymbolique = (S_IFLNK | 0777U) << 16;

} // namespace

TEST_F(ArchiveExtraite, WhatInfoZipPackedComesOutWithoutItsFolders)
{
    ailleurs.Ecrire("Zelvane.qrt", QByteArray(300000, 'z'));
    ailleurs.Ecrire("sous/image.jpg", "image");
    ailleurs.Ecrire("vide.txt", "");
    Lancer("zip", {"-q", "-r", "x.zip", "Zelvane.qrt", "sous", "vide.txt"}, ailleurs.Chemin());
    zip.Init(ailleurs.Fichier("x.zip"));
    EXPECT_EQ(zip.Decompress(Cible(), QString()), ZipFait);
    EXPECT_EQ(Extraits(), QStringList({"Zelvane.qrt", "image.jpg", "vide.txt"}));
    EXPECT_EQ(Lire("Zelvane.qrt"), QByteArray(300000, 'z'));
    EXPECT_EQ(Lire("image.jpg"), "image");
    EXPECT_EQ(zip.GetZipInfo(), "");
}

TEST_F(ArchiveExtraite, AnEntryOfUnknownSizeInItsHeaderComesOut)
{
    // Written to a pipe, sizes stand behind the data and in the directory alone.
    ailleurs.Ecrire("Zelvane.qrt", QByteArray(300000, 'z'));
    Lancer("sh", {"-c", "zip -q - Zelvane.qrt | cat > x.zip"}, ailleurs.Chemin());
    zip.Init(ailleurs.Fichier("x.zip"));
    EXPECT_EQ(zip.Decompress(Cible(), QString()), ZipFait);
    EXPECT_EQ(Lire("Zelvane.qrt"), QByteArray(300000, 'z'));
}

TEST_F(ArchiveExtraite, NoNameLeadsOutOfTheTarget)
{
    const QList<QByteArray> noms = {"../x1",     "../../x2",       "/x3",           "a/../../x4",
                                    "..\\x5",    "C:\\x6",         "a\\..\\..\\x7", "//x8",
                                    "..\\../x9", "\\\\srv\\d\\xa", "./xb",          "cible/../../xc"};
    QList<EntreeZip> entrees;
    for (const QByteArray& nom : noms)
        entrees.append({nom, nom});
    EXPECT_EQ(Extraire(entrees), ZipFait);
    EXPECT_EQ(Extraits(), QStringList({"x1", "x2", "x3", "x4", "x5", "x6", "x7", "x8", "x9", "xa", "xb", "xc"}));
    EXPECT_EQ(Lire("x4"), "a/../../x4");
    EXPECT_TRUE(RienAutour());
    EXPECT_FALSE(QFile::exists("/x3"));
}

TEST_F(ArchiveExtraite, ASlashInDisguiseStaysALetter)
{
    // An overlong UTF-8 slash, and a full-width one.
    Extraire({{"..\xC0\xAFx", "1", false, DrapeauUtf8}, {"..\xEF\xBC\x8Fy", "2", false, DrapeauUtf8}});
    EXPECT_TRUE(RienAutour());
    EXPECT_TRUE(Extraits().contains("..／y"));
}

TEST_F(ArchiveExtraite, NamesThatAreNoneArePassedOverWithAWarning)
{
    for (const QByteArray& nom : {QByteArray(""), QByteArray("."), QByteArray(".."), QByteArray("a/.."),
                                  QByteArray("a\\."), QByteArray("a\0b", 3), QByteArray("a.jpg\0", 6)}) {
        EXPECT_EQ(Extraire({{nom, "hostile"}, {"bon.jpg", "image"}}), ZipAvertissement)
            << nom.toPercentEncoding().data();
        EXPECT_EQ(Extraits(), QStringList("bon.jpg")) << nom.toPercentEncoding().data();
        EXPECT_NE(zip.GetZipInfo(), "");
    }
    EXPECT_TRUE(RienAutour());
}

TEST_F(ArchiveExtraite, FoldersArePassedOverInSilence)
{
    EXPECT_EQ(Extraire({{"sous/", ""}, {"autre\\", ""}, {"sous/a", "1"}}), ZipFait);
    EXPECT_EQ(Extraits(), QStringList("a"));
}

TEST_F(ArchiveExtraite, LinksComeOutAsPlainFilesAndAreNotFollowed)
{
    monde.Ecrire("dehors", "intact");
    EXPECT_EQ(Extraire({{"lien", "../dehors", false, 0, LienSymbolique}}), ZipFait);
    EXPECT_TRUE(QFileInfo(Cible() + "lien").isFile());
    EXPECT_FALSE(QFileInfo(Cible() + "lien").isSymLink());
    EXPECT_EQ(Lire("lien"), "../dehors");

    EXPECT_EQ(Extraire({{"lien2", "../dehors", false, 0, LienSymbolique}, {"lien2", "ecrase"}}), ZipFait);
    EXPECT_EQ(monde.Lire("dehors"), "intact");
}

TEST_F(ArchiveExtraite, ALinkThatLiesInTheTargetIsReplacedNotFollowed)
{
    const QString dehors = monde.Ecrire("dehors", "intact");
    ASSERT_TRUE(QFile::link(dehors, Cible() + "image.jpg"));
    EXPECT_EQ(Extraire({{"image.jpg", "image"}}), ZipFait);
    EXPECT_EQ(Lire("image.jpg"), "image");
    EXPECT_EQ(monde.Lire("dehors"), "intact");
}

TEST_F(ArchiveExtraite, OfTwoEntriesOfOneNameTheLaterWins)
{
    EXPECT_EQ(Extraire({{"a.jpg", "un"}, {"b.jpg", "x"}, {"sous/a.jpg", "deux"}}), ZipFait);
    EXPECT_EQ(Extraits(), QStringList({"a.jpg", "b.jpg"}));
    EXPECT_EQ(Lire("a.jpg"), "deux");
}

TEST_F(ArchiveExtraite, FilesThatAreThereAreOverwrittenWithoutAQuestion)
{
    monde.Ecrire("cible/a.jpg", "un contenu plus long");
    EXPECT_EQ(Extraire({{"a.jpg", "un"}}), ZipFait);
    EXPECT_EQ(Lire("a.jpg"), "un");
}

TEST_F(ArchiveExtraite, AFolderInTheWayOfAFileFails)
{
    monde.Ecrire("cible/a.jpg/b", "x");
    EXPECT_EQ(Extraire({{"z.jpg", "un"}, {"a.jpg", "un"}}), ZipDisque);
    EXPECT_EQ(Extraits(), QStringList("a.jpg"));
}

TEST_F(ArchiveExtraite, FilesKeepTheirDateAndGetPlainPermissions)
{
    EXPECT_EQ(Extraire({{"a.jpg", "un", false, 0, (S_IFREG | 06777U) << 16}}), ZipFait);
    const QFileInfo fichier(Cible() + "a.jpg");
    EXPECT_EQ(fichier.lastModified(), QDateTime(QDate(2001, 7, 14), QTime(12, 0)));
    struct stat etat;
    ASSERT_EQ(stat(fichier.filePath().toUtf8().constData(), &etat), 0);
    EXPECT_EQ(etat.st_mode & 07111, 0U);
}

TEST_F(ArchiveExtraite, AnEmptyTargetIsAWarning)
{
    zip.Init(ailleurs.Ecrire("essai.qrt", FaireArchive({{"a", "1"}})));
    EXPECT_EQ(zip.Decompress(QString(), QString()), ZipAvertissement);
}

TEST_F(ArchiveExtraite, AMissingTargetFails)
{
    zip.Init(ailleurs.Ecrire("essai.qrt", FaireArchive({{"a", "1"}})));
    EXPECT_EQ(zip.Decompress(monde.Fichier("absent"), QString()), ZipDisque);
    EXPECT_TRUE(RienAutour());
}

TEST_F(ArchiveExtraite, AMissingArchiveFails)
{
    zip.Init(ailleurs.Fichier("absent"));
    EXPECT_EQ(zip.Decompress(Cible(), QString()), ZipIntrouvable);
    EXPECT_EQ(ccZip().Decompress(Cible(), QString()), ZipIntrouvable);
}

TEST_F(ArchiveExtraite, AnArchiveWithoutEntriesIsAWarning)
{
    EXPECT_EQ(Extraire(FaireArchive({})), ZipAvertissement);
}

TEST_F(ArchiveExtraite, TheMaskChoosesByTheWholeName)
{
    const QByteArray archive = FaireArchive({{"a.jpg", "1"}, {"b.gif", "2"}, {"ab.jpg", "3"}, {"sous/a.jpg.txt", "4"}});
    EXPECT_EQ(Extraire(archive, "?.jpg"), ZipFait);
    EXPECT_EQ(Extraits(), QStringList("a.jpg"));
    EXPECT_EQ(Extraire(archive, "*.jpg"), ZipFait);
    EXPECT_EQ(Extraits(), QStringList({"a.jpg", "ab.jpg"}));
    EXPECT_EQ(Extraire(archive, "s*a*.t?t"), ZipFait);
    EXPECT_EQ(Extraits(), QStringList({"a.jpg", "a.jpg.txt", "ab.jpg"}));
    EXPECT_EQ(Extraire(archive, "A.JPG"), ZipAucunFichier);
    EXPECT_EQ(Extraire(archive, "*.jpg?"), ZipAucunFichier);
    EXPECT_EQ(Extraire(archive, "**"), ZipFait);
    EXPECT_EQ(Extraits().size(), 4);
}

namespace {

/// Damage of one entry, and the result that it must have.
struct Degat
{
    const char* nom;
    EntreeZip entree;
    int resultat;
};

void PrintTo(const Degat& degat, std::ostream* flux)
{
    *flux << degat.nom;
}

class ArchiveAbimee : public ArchiveExtraite, public testing::WithParamInterface<Degat>
{
};

const QByteArray Long(100000, 'x');

const Degat LesDegats[] = {
    {"StoredWrongSum", {.nom = "a", .contenu = "image", .crc = 1}, ZipDonnees},
    {"DeflatedWrongSum", {.nom = "a", .contenu = Long, .comprime = true, .crc = 1}, ZipDonnees},
    {"EmptyWrongSum", {.nom = "a", .contenu = "", .crc = 1}, ZipDonnees},
    {"StoredSaysLess", {.nom = "a", .contenu = "image", .taille = 4}, ZipDonnees},
    {"StoredSaysMore", {.nom = "a", .contenu = "image", .taille = 6}, ZipDonnees},
    {"DeflatedSaysLess", {.nom = "a", .contenu = Long, .comprime = true, .taille = 99999}, ZipDonnees},
    {"DeflatedSaysMore", {.nom = "a", .contenu = Long, .comprime = true, .taille = 100001}, ZipDonnees},
    {"DeflatedSaysNothing", {.nom = "a", .contenu = Long, .comprime = true, .taille = 0}, ZipDonnees},
    {"NoDataSaysSome", {.nom = "a", .contenu = "", .taille = 1000}, ZipDonnees},
    {"NoDeflate", {.nom = "a", .contenu = Long, .comprime = true, .donnees = QByteArray(50, '\xFF')}, ZipDonnees},
    {"HalfOfTheDeflate",
     {.nom = "a", .contenu = Long, .comprime = true, .donnees = Deflate(Long).first(60)},
     ZipDonnees},
    {"UnknownMethod", {.nom = "a", .contenu = "image", .methode = 98}, ZipMethode},
    {"Imploded", {.nom = "a", .contenu = "image", .methode = 6}, ZipMethode},
    {"StrongEncryption", {.nom = "a", .contenu = "image", .drapeaux = DrapeauChiffre | 0x40}, ZipMethode},
    {"BeyondFourGiB", {.nom = "a", .contenu = "image", .taille = (uint64_t(4) << 30) + 1}, ZipTropGrand},
};

} // namespace

TEST_P(ArchiveAbimee, FailsAndLeavesNothing)
{
    EXPECT_EQ(Extraire({{"bon.jpg", "image"}, GetParam().entree, {"bon2.jpg", "image"}}), GetParam().resultat);
    EXPECT_EQ(Extraits(), QStringList());
    EXPECT_NE(zip.GetZipInfo(), "");
    EXPECT_TRUE(RienAutour());
}

INSTANTIATE_TEST_SUITE_P(DUneEntree, ArchiveAbimee, testing::ValuesIn(LesDegats),
                         [](const testing::TestParamInfo<Degat>& cas) { return std::string(cas.param.nom); });

TEST_F(ArchiveExtraite, AnArchiveCutAnywhereFailsAndLeavesNothing)
{
    const QByteArray archive = FaireArchive({{"a.jpg", Long, true}, {"b.jpg", "image"}});
    for (qsizetype taille = 0; taille < archive.size(); ++taille) {
        EXPECT_GE(Extraire(archive.first(taille)), taille == 0 ? 1 : 2) << taille;
        EXPECT_EQ(Extraits(), QStringList()) << taille;
    }
    EXPECT_EQ(Extraire(archive.chopped(1)), ZipTronque);
    EXPECT_EQ(Extraire(archive), ZipFait);
}

TEST_F(ArchiveExtraite, AnyByteOfTheArchiveMayBeWrong)
{
    const QByteArray archive = FaireArchive({{"a.jpg", Long, true}, {"b.jpg", "image"}});
    for (qsizetype i = 0; i < archive.size(); ++i) {
        QByteArray abimee = archive;
        abimee[i] = static_cast<char>(abimee[i] ^ 0x55);
        const int resultat = Extraire(abimee);
        EXPECT_TRUE(RienAutour()) << i;
        EXPECT_TRUE(resultat <= ZipAvertissement || Extraits().isEmpty()) << i;
        for (const QString& nom : Extraits())
            QFile::remove(Cible() + nom);
    }
}

TEST_F(ArchiveExtraite, ABombIsRefusedByWhatItAnnounces)
{
    const QByteArray zeros = Deflate(QByteArray(1 << 20, '\0'));
    EntreeZip bombe{
        .nom = "a", .contenu = "", .comprime = true, .crc = 0, .taille = (uint64_t(5) << 30), .donnees = zeros};
    EXPECT_EQ(Extraire({{"bon.jpg", "image"}, bombe}), ZipTropGrand);
    EXPECT_EQ(Extraits(), QStringList());
}

TEST_F(ArchiveExtraite, ABombThatAnnouncesLittleIsStoppedThere)
{
    // 64 MiB of zeros in 64 KB; were more than the announced 100 KB written, the limit of the child would tell.
    EntreeZip bombe{.nom = "a", .contenu = QByteArray(64 << 20, '\0'), .comprime = true, .taille = 300000};
    const QString chemin = ailleurs.Ecrire("essai.qrt", FaireArchive({bombe}));
    const int resultat = DansUnEnfant([&] {
        LimiterTailleDesFichiers(300000);
        zip.Init(chemin);
        return zip.Decompress(Cible(), QString());
    });
    EXPECT_EQ(resultat, ZipDonnees);
    EXPECT_EQ(Extraits(), QStringList());
}

TEST_F(ArchiveExtraite, TheLimitOfAnEntryCountsFromOneByteMore)
{
    zip.Limites.parEntree = 5;
    EXPECT_EQ(Extraire({{"a.jpg", "image"}}), ZipFait);
    EXPECT_EQ(Extraire({{"a.jpg", "images"}}), ZipTropGrand);
}

TEST_F(ArchiveExtraite, EntriesThatTogetherExceedTheDiskAreRefusedBeforeTheFirstByte)
{
    const QByteArray cent(100 << 10, 'x');
    const QList<EntreeZip> entrees = {{"a", cent, true}, {"b", cent, true}, {"c", cent, true}};
    zip.Limites.placeLibre = 300 << 10;
    EXPECT_EQ(Extraire(entrees), ZipDisque) << "some room is kept";
    EXPECT_EQ(Extraits(), QStringList());
    zip.Limites.placeLibre = 330 << 10;
    EXPECT_EQ(Extraire(entrees), ZipFait);
}

TEST_F(ArchiveExtraite, ManySmallFilesCountInWholeBlocks)
{
    QList<EntreeZip> entrees;
    for (int i = 0; i < 100; ++i)
        entrees.append({QByteArray::number(i), "x"});
    zip.Limites.placeLibre = 300 << 10;
    EXPECT_EQ(Extraire(entrees), ZipDisque);
    zip.Limites.placeLibre = 500 << 10;
    EXPECT_EQ(Extraire(entrees), ZipFait);
}

TEST_F(ArchiveExtraite, MoreThanTheRealDiskHoldsIsRefused)
{
    QList<EntreeZip> entrees;
    for (int i = 0; i < 20000; ++i)
        entrees.append({.nom = QByteArray::number(i), .contenu = "x", .comprime = true, .taille = uint64_t(4) << 30});
    EXPECT_EQ(Extraire(entrees), ZipDisque);
    EXPECT_EQ(Extraits(), QStringList());
}

TEST_F(ArchiveExtraite, AFullDiskFailsAndLeavesNothing)
{
    const QString chemin = ailleurs.Ecrire("essai.qrt", FaireArchive({{"a", "image"}, {"b", Long, true}}));
    const int resultat = DansUnEnfant([&] {
        LimiterTailleDesFichiers(50000);
        zip.Init(chemin);
        return zip.Decompress(Cible(), QString());
    });
    EXPECT_EQ(resultat, ZipDisque);
    EXPECT_EQ(Extraits(), QStringList());
}

TEST_F(ArchiveExtraite, AHundredThousandEntriesTakeNoQuadraticTime)
{
    QList<EntreeZip> entrees;
    for (int i = 0; i < 100000; ++i)
        entrees.append({"image" + QByteArray::number(i) + ".jpg", QByteArray::number(i)});
    EXPECT_EQ(Extraire(entrees), ZipFait);
    EXPECT_EQ(zip.count(), 100000);
    EXPECT_EQ(Extraits().size(), 100000);
    EXPECT_EQ(Lire("image99999.jpg"), "99999");
}
