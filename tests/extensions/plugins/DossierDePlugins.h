// The folder "plugins" of a test's program, and the service that loads what is put there.
#pragma once

#include "platform/ComposantsDuSysteme.h"
#include "support/PlateformeDeTest.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

/// The program's plug-ins, for one test. The process does not end: `fins` tells for which library it would have.
class ComposantsDEssai : public ComposantsDuSysteme
{
public:
    void FinirLeProcessus(const QString& chemin) override
    {
        if (AvantLaFin)
            AvantLaFin();
        fins.append(chemin);
    }
    void* Charger(const QString& chemin) override
    {
        charges.append(QFileInfo(chemin).fileName());
        return ComposantsDuSysteme::Charger(chemin);
    }

    QStringList fins;
    QStringList charges;
};

class DossierDePlugins
{
public:
    DossierDePlugins()
    {
        plateforme().composants = &composants;
        QDir().mkpath(Chemin());
        QFile::setPermissions(Chemin(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    ~DossierDePlugins() { plateforme().composants = nullptr; }
    DossierDePlugins(const DossierDePlugins&) = delete;
    DossierDePlugins& operator=(const DossierDePlugins&) = delete;

    static QString Chemin() { return plateforme().dossierProgramme + QStringLiteral("plugins/"); }
    /// Puts a built library into the folder, and returns its path there.
    static QString Mettre(const QString& nom)
    {
        const QString chemin = Chemin() + nom + QStringLiteral(".dll");
        EXPECT_TRUE(QFile::copy(QStringLiteral(ESSAIS) + nom + QStringLiteral(".dll"), chemin)) << nom.toStdString();
        QFile::setPermissions(chemin, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return chemin;
    }
    static void Mettre(const QStringList& noms)
    {
        for (const QString& nom : noms)
            Mettre(nom);
    }
    static void MettreNeufAutres()
    {
        for (int i = 1; i <= 9; ++i)
            Mettre(QStringLiteral("autre%1").arg(i));
    }

    ComposantsDEssai composants;
};
