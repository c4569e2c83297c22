// The help pages that are installed: each can be read, and no link leads nowhere.
#include "extensions/dialogues/Aide.h"

#include "support/DossierDeTest.h"
#include "support/PlateformeDeTest.h"

#include <QDir>
#include <QFile>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

namespace {

/// What the pages' links name; a page that is not well-formed fails the test.
QStringList LiensDe(const QString& chemin)
{
    QFile fichier(chemin);
    EXPECT_TRUE(fichier.open(QIODevice::ReadOnly)) << chemin.toStdString();
    QXmlStreamReader lecteur(&fichier);
    QStringList liens;
    while (!lecteur.atEnd()) {
        lecteur.readNext();
        if (lecteur.isStartElement() && lecteur.attributes().hasAttribute("href"))
            liens.append(lecteur.attributes().value("href").toString());
    }
    EXPECT_FALSE(lecteur.hasError()) << chemin.toStdString() << ": " << lecteur.errorString().toStdString();
    return liens;
}

TEST(InstalledHelp, StartsWhereTheProgramLooksAndEveryPageIsReached)
{
    const QDir donnees(ZELVANE_DATA);
    const PlateformeDeTest& courante = PlateformeDeTest::Courante();
    // The program's folder has links to what is installed.
    ASSERT_TRUE(QFile::link(donnees.absoluteFilePath("AideQrt"), courante.dossier.Fichier("AideQrt")));
    AfficherAide(true);
    const QString premiere = courante.programmes.fichiers.value(0).mid(plateforme().dossierProgramme.size());
    ASSERT_TRUE(QFile::exists(donnees.filePath(premiere))) << premiere.toStdString();

    const QDir aide(QFileInfo(donnees.filePath(premiere)).path());
    QStringList vues;
    QStringList aVoir{QFileInfo(premiere).fileName()};
    while (!aVoir.isEmpty()) {
        const QString page = aVoir.takeFirst();
        if (vues.contains(page))
            continue;
        ASSERT_TRUE(aide.exists(page)) << page.toStdString();
        vues.append(page);
        if (page.endsWith(".html"))
            aVoir += LiensDe(aide.filePath(page));
    }
    vues.sort();
    EXPECT_EQ(vues, aide.entryList(QDir::Files, QDir::Name));
}

} // namespace
