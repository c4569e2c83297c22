// The help pages that are installed, in both languages: each can be read and is reached from the first one, no link and
// no picture is missing, and what is told in one language is told in the other one, too.
#include "extensions/dialogues/Aide.h"

#include "support/DossierDeTest.h"
#include "support/PlateformeDeTest.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct ImageDePage
{
    QString source;
    QString texte; ///< what is read out, or shown where there are no pictures
};

struct PageLue
{
    QString langue;
    QStringList liens;  ///< all that the page names, as it stands there
    QStringList nav;    ///< the links of its bar
    QStringList ancres; ///< its places that can be linked to
    QList<ImageDePage> images;
    QMap<QString, int> parties; ///< how many paragraphs, items, rows, keys ... it has
};

void LireElement(const QXmlStreamReader& lecteur, bool dansNav, PageLue& page)
{
    const QXmlStreamAttributes attributs = lecteur.attributes();
    static const QStringList parties{u"h1"_s, u"h2"_s,     u"p"_s,   u"li"_s,  u"tr"_s,
                                     u"td"_s, u"figure"_s, u"kbd"_s, u"code"_s};
    if (parties.contains(lecteur.name()))
        ++page.parties[lecteur.name().toString()];
    if (lecteur.name() == "html"_L1)
        page.langue = attributs.value("lang").toString();
    if (lecteur.name() == "img"_L1)
        page.images.append({attributs.value("src").toString(), attributs.value("alt").toString()});
    if (attributs.hasAttribute("id"))
        page.ancres.append(attributs.value("id").toString());
    if (!attributs.hasAttribute("href"))
        return;
    page.liens.append(attributs.value("href").toString());
    if (dansNav)
        page.nav.append(page.liens.last());
}

/// A page that is not well-formed fails the test.
PageLue Lire(const QString& chemin)
{
    QFile fichier(chemin);
    EXPECT_TRUE(fichier.open(QIODevice::ReadOnly)) << chemin.toStdString();
    QXmlStreamReader lecteur(&fichier);
    PageLue page;
    bool dansNav = false;
    while (!lecteur.atEnd()) {
        lecteur.readNext();
        if (lecteur.isStartElement() || lecteur.isEndElement())
            dansNav = lecteur.name() == "nav"_L1 ? lecteur.isStartElement() : dansNav;
        if (lecteur.isStartElement())
            LireElement(lecteur, dansNav, page);
    }
    EXPECT_FALSE(lecteur.hasError()) << chemin.toStdString() << ": " << lecteur.errorString().toStdString();
    return page;
}

QByteArray Octets(const QString& chemin)
{
    QFile fichier(chemin);
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
}

/// A language of the help: where its pages lie below AideQrt, and how they name those of the other one.
struct LangueDAide
{
    QString nom;
    QString dossier;
    QString versLAutre;
};

const QList<LangueDAide> Langues{{u"fr"_s, u""_s, u"en/"_s}, {u"en"_s, u"en/"_s, u"../"_s}};

class InstalledHelp : public testing::Test
{
protected:
    InstalledHelp() : m_aide(QDir(ZELVANE_DATA).filePath("AideQrt")) {}

    QStringList Pages(const LangueDAide& langue) const
    {
        return QDir(m_aide.filePath(langue.dossier)).entryList({"*.html"}, QDir::Files, QDir::Name);
    }
    PageLue Page(const LangueDAide& langue, const QString& page) const
    {
        return Lire(m_aide.filePath(langue.dossier + page));
    }

    QDir m_aide;
};

TEST_F(InstalledHelp, StartsWhereTheProgramLooksAndEveryFileIsReached)
{
    const PlateformeDeTest& courante = PlateformeDeTest::Courante();
    // The program's folder has links to what is installed.
    ASSERT_TRUE(QFile::link(m_aide.absolutePath(), courante.dossier.Fichier("AideQrt")));
    AfficherAide(true);
    const QString premiere = courante.programmes.fichiers.value(0);

    QStringList vues;
    QStringList aVoir{QFileInfo(premiere).fileName()};
    while (!aVoir.isEmpty()) {
        const QString fichier = aVoir.takeFirst();
        if (vues.contains(fichier))
            continue;
        ASSERT_TRUE(m_aide.exists(fichier)) << fichier.toStdString();
        vues.append(fichier);
        if (!fichier.endsWith(".html"))
            continue;
        const PageLue page = Lire(m_aide.filePath(fichier));
        const QString dossier = fichier.left(fichier.lastIndexOf(u'/') + 1);
        for (const QString& lien : page.liens) {
            const bool ici = lien.startsWith(u'#');
            EXPECT_TRUE(!ici || page.ancres.contains(lien.mid(1))) << (fichier + lien).toStdString();
            if (!ici)
                aVoir.append(QDir::cleanPath(dossier + lien));
        }
        for (const ImageDePage& image : page.images)
            aVoir.append(QDir::cleanPath(dossier + image.source));
    }
    vues.sort();

    QStringList installes;
    for (QDirIterator fichiers(m_aide.path(), QDir::Files, QDirIterator::Subdirectories); fichiers.hasNext();)
        installes.append(m_aide.relativeFilePath(fichiers.next()));
    installes.sort();
    EXPECT_EQ(vues, installes);
}

TEST_F(InstalledHelp, EveryPageHasItsCounterpartInTheOtherLanguage)
{
    EXPECT_FALSE(Pages(Langues[0]).isEmpty());
    EXPECT_EQ(Pages(Langues[0]), Pages(Langues[1]));
    for (const LangueDAide& langue : Langues) {
        for (const QString& nom : Pages(langue)) {
            const PageLue page = Page(langue, nom);
            EXPECT_EQ(page.langue, langue.nom) << nom.toStdString();
            EXPECT_EQ(page.nav.value(page.nav.size() - 1), langue.versLAutre + nom) << nom.toStdString();
        }
    }
}

/// What was added to a page in one language only shows here.
TEST_F(InstalledHelp, APageHasTheSamePartsInBothLanguages)
{
    for (const QString& nom : Pages(Langues[0])) {
        const PageLue page = Page(Langues[0], nom);
        EXPECT_GT(page.parties[u"p"_s] + page.parties[u"tr"_s], 1) << nom.toStdString();
        EXPECT_EQ(page.parties, Page(Langues[1], nom).parties) << nom.toStdString();
    }
}

/// Those who know one page know where to find the others on all of them: they come in one order.
TEST_F(InstalledHelp, ThePagesOfALanguageLeadToEachOtherInOneOrder)
{
    const QString premiere = u"aideZelvane.html"_s;
    QStringList ordre = Page(Langues[0], premiere).nav;
    ordre.removeLast();
    ordre.prepend(premiere);
    QStringList toutes = ordre;
    toutes.sort();
    EXPECT_EQ(toutes, Pages(Langues[0]));
    for (const LangueDAide& langue : Langues) {
        for (const QString& nom : Pages(langue)) {
            QStringList autres = Page(langue, nom).nav;
            autres.removeLast();
            QStringList attendues = ordre;
            attendues.removeOne(nom);
            EXPECT_EQ(autres, attendues) << langue.dossier.toStdString() << nom.toStdString();
        }
    }
}

TEST_F(InstalledHelp, EveryPictureIsThereWithATextAndAllAreSmall)
{
    qsizetype octets = 0;
    for (const LangueDAide& langue : Langues) {
        for (const QString& nom : Pages(langue)) {
            for (const ImageDePage& image : Page(langue, nom).images) {
                const QByteArray png = Octets(m_aide.filePath(langue.dossier + image.source));
                EXPECT_TRUE(png.startsWith("\x89PNG\r\n\x1a\n")) << nom.toStdString() << image.source.toStdString();
                EXPECT_FALSE(image.texte.trimmed().isEmpty()) << nom.toStdString() << image.source.toStdString();
                octets += png.size();
            }
        }
    }
    EXPECT_GT(octets, 0);
    EXPECT_LT(octets, 1'500'000);
}

} // namespace
