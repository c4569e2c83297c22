#include "output/TravailEnPdf.h"

#include "platform/NomsSysteme.h"
#include "support/ArchiveDeTest.h"
#include "support/DossierDeTest.h"
#include "support/Impression.h"

#include <QDir>
#include <QFileInfo>
#include <QPainter>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Two pages, and the end unless it is to be missing.
bool Ecrire(TravailEnPdf& travail, bool finir = true)
{
    QPainter peintre(&travail.Papier());
    peintre.drawRect(100, 100, 200, 200);
    EXPECT_TRUE(travail.NouvellePage());
    peintre.drawRect(100, 100, 200, 200);
    peintre.end();
    return finir && travail.Finir();
}

bool EstPdf(const QByteArray& octets)
{
    return octets.startsWith("%PDF-") && octets.trimmed().endsWith("%%EOF");
}

} // namespace

TEST(TravailEnPdf, APageIsA4AndTheFileWhole)
{
    const DossierDeTest dossier;
    const auto travail = TravailEnPdf::Commencer(dossier.Fichier("pages.pdf"), u"Mes disques"_s);
    ASSERT_TRUE(travail);
    EXPECT_NEAR(travail->Papier().width() * 25.4 / UnitesParPouce, 210, 0.1);
    EXPECT_NEAR(travail->Papier().height() * 25.4 / UnitesParPouce, 297, 0.1);
    EXPECT_TRUE(Ecrire(*travail));
    EXPECT_TRUE(EstPdf(dossier.Lire("pages.pdf")));
    EXPECT_EQ(QDir(dossier.Chemin()).entryList(QDir::Files), QStringList("pages.pdf"));
}

TEST(TravailEnPdf, TheOldFileStaysUntilTheEnd)
{
    const DossierDeTest dossier;
    dossier.Ecrire("pages.pdf", "ancien");
    auto travail = TravailEnPdf::Commencer(dossier.Fichier("pages.pdf"), {});
    ASSERT_TRUE(travail);
    Ecrire(*travail, false);
    EXPECT_EQ(dossier.Lire("pages.pdf"), "ancien");
    travail.reset();
    EXPECT_EQ(dossier.Lire("pages.pdf"), "ancien") << "given up";
    EXPECT_EQ(QDir(dossier.Chemin()).entryList(QDir::Files), QStringList("pages.pdf"));
    travail = TravailEnPdf::Commencer(dossier.Fichier("pages.pdf"), {});
    EXPECT_TRUE(Ecrire(*travail));
    EXPECT_TRUE(EstPdf(dossier.Lire("pages.pdf")));
}

TEST(TravailEnPdf, ALinkStaysALink)
{
    const DossierDeTest dossier;
    dossier.Ecrire("vrai.pdf", "ancien");
    ASSERT_TRUE(QFile::link(dossier.Fichier("vrai.pdf"), dossier.Fichier("lien.pdf")));
    EXPECT_TRUE(Ecrire(*TravailEnPdf::Commencer(dossier.Fichier("lien.pdf"), {})));
    EXPECT_TRUE(EstLien(dossier.Fichier("lien.pdf")));
    EXPECT_TRUE(EstPdf(dossier.Lire("vrai.pdf")));
}

TEST(TravailEnPdf, ThereIsNoneInAFolderThatThereIsNot)
{
    const DossierDeTest dossier;
    EXPECT_FALSE(TravailEnPdf::Commencer(dossier.Fichier("pas/la.pdf"), {}));
    EXPECT_FALSE(TravailEnPdf::Commencer(dossier.Chemin(), {})) << "a folder is no file";
}

TEST(TravailEnPdf, AReadOnlyFileStays)
{
    const DossierDeTest dossier;
    dossier.Ecrire("pages.pdf", "ancien");
    ASSERT_TRUE(QFile::setPermissions(dossier.Fichier("pages.pdf"), QFile::ReadOwner));
    EXPECT_FALSE(TravailEnPdf::Commencer(dossier.Fichier("pages.pdf"), {}));
    EXPECT_EQ(dossier.Lire("pages.pdf"), "ancien");
}

TEST(TravailEnPdf, AFullDiskIsSeenAndLeavesTheOldFile)
{
    const DossierDeTest dossier;
    dossier.Ecrire("pages.pdf", "ancien");
    const int issue = DansUnEnfant([&] {
        LimiterTailleDesFichiers(200);
        const auto travail = TravailEnPdf::Commencer(dossier.Fichier("pages.pdf"), {});
        return travail && Ecrire(*travail) ? 1 : 0;
    });
    EXPECT_EQ(issue, 0);
    EXPECT_EQ(dossier.Lire("pages.pdf"), "ancien");
    EXPECT_EQ(QDir(dossier.Chemin()).entryList(QDir::Files), QStringList("pages.pdf"));
}
