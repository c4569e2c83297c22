// zelvane-cli as its users run it, with settings and folders of the test's own.
#pragma once

#include "support/TableDeTest.h"

#include <QDir>
#include <QProcess>

#include <gtest/gtest.h>

struct Resultat
{
    int statut;
    QByteArray sortie;
    QByteArray erreurs;
};

class CommandeDeTest : public testing::Test
{
protected:
    CommandeDeTest()
    {
        environnement = QProcessEnvironment::systemEnvironment();
        environnement.insert("ZELVANE_DOSSIER", dossier.Fichier("programme"));
        environnement.insert("XDG_CONFIG_HOME", dossier.Fichier("config"));
        environnement.insert("XDG_DATA_HOME", dossier.Fichier("donnees"));
        environnement.remove("ZELVANE_MOT_DE_PASSE");
    }
    ~CommandeDeTest() override
    {
        EXPECT_TRUE(QDir(dossier.Fichier("programme/temp")).isEmpty()) << "a temporary folder was left behind";
    }

    Resultat Lancer(const QStringList& arguments) const { return Lancer(ZELVANE_CLI, arguments); }
    Resultat Lancer(const QString& programme, const QStringList& arguments) const
    {
        QProcess processus;
        processus.setProcessEnvironment(environnement);
        processus.setStandardInputFile(QProcess::nullDevice());
        processus.start(programme, arguments);
        EXPECT_TRUE(processus.waitForFinished(60000));
        EXPECT_EQ(processus.exitStatus(), QProcess::NormalExit);
        return {processus.exitCode(), processus.readAllStandardOutput(), processus.readAllStandardError()};
    }

    TexteDeCatalogue Catalogue() const
    {
        TexteDeCatalogue texte;
        texte.version = "1.4";
        texte.cleDeTri = "1";
        texte.colonnes = {"Titre|4200,5|", "Artiste|3300|rock|jazz", "Prêté|600|"};
        texte.entrees = {"Ça|Abba||perdue.gif", "Kind of \"Blue\"|Miles Davis|Éric - 01/02/2026|"};
        return texte;
    }

    QString Bare() const { return dossier.Ecrire("bare.qrt", Catalogue().Texte()); }

    DossierDeTest dossier;
    QProcessEnvironment environnement;
};

inline void AttendreUneErreurDUsage(const Resultat& resultat)
{
    EXPECT_EQ(resultat.statut, 2);
    EXPECT_EQ(resultat.sortie, "");
    EXPECT_EQ(resultat.erreurs.count('\n'), 1) << resultat.erreurs.toStdString();
    EXPECT_TRUE(resultat.erreurs.contains("--help"));
}
