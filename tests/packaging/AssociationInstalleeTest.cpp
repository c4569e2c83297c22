// What is installed for the whole system says the same as what the program writes for one user.
#include "platform/Association.h"

#include "support/DossierDeTest.h"

#include <QFile>

#include <gtest/gtest.h>

namespace {

QByteArray Empaquete(const QString& nom)
{
    QFile fichier(QStringLiteral(ZELVANE_PACKAGING "/") + nom);
    EXPECT_TRUE(fichier.open(QIODevice::ReadOnly)) << nom.toStdString();
    return fichier.readAll();
}

TEST(InstalledAssociation, IsTheOneThatTheProgramMakes)
{
    // The tools that bring a desktop's caches up to date have no business in a folder that goes in a moment.
    qputenv("PATH", "/nowhere");
    const DossierDeTest dossier;
    AssociationBureau({dossier.Fichier("data"), "zelvane", dossier.Fichier("no.ico")}).Enregistrer();

    EXPECT_EQ(dossier.Lire("data/applications/zelvane.desktop"), Empaquete("zelvane.desktop"));
    EXPECT_EQ(dossier.Lire("data/mime/packages/zelvane.xml"), Empaquete("zelvane.xml"));
}

} // namespace
