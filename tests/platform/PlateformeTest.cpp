#include "platform/Plateforme.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <QDir>

#include <gtest/gtest.h>

namespace {

TEST(PlateformeReelle, FillsThePlatformForAsLongAsItLives)
{
    const DossierDeTest dossier;
    const QByteArray avant = qgetenv("ZELVANE_DOSSIER");
    qputenv("ZELVANE_DOSSIER", dossier.Fichier("program").toUtf8());
    const Plateforme doubles = plateforme();
    {
        const PlateformeReelle reelle;
        const Plateforme& p = plateforme();
        EXPECT_EQ(p.dossierProgramme, dossier.Fichier("program/"));
        EXPECT_EQ(p.nomProgramme, "zelvane");
        EXPECT_TRUE(p.reglages && p.ini && p.attributs && p.horloge && p.hasard && p.region && p.association);
        EXPECT_NE(p.attributs, doubles.attributs);
        EXPECT_NE(p.region, doubles.region);
        EXPECT_EQ(p.imprimantes->Noms(), QStringList());
        EXPECT_NE(p.reglages, doubles.reglages);
        EXPECT_FALSE(p.programmes->OuvrirFichier(dossier.Chemin()));
    }
    EXPECT_EQ(plateforme().reglages, nullptr);
    EXPECT_EQ(plateforme().dossierProgramme, "");
    plateforme() = doubles;
    avant.isNull() ? qunsetenv("ZELVANE_DOSSIER") : qputenv("ZELVANE_DOSSIER", avant);
}

TEST(PlateformeDeTest, KeepsTheUsersOwnOut)
{
    EXPECT_EQ(plateforme().reglages, &PlateformeDeTest::Courante().reglages);
    EXPECT_TRUE(plateforme().dossierProgramme.startsWith(QDir::tempPath()));
}

} // namespace
