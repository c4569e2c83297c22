// The floors of the source tree: what may include what, and what the core may know of.
#include "architecture/Inclusions.h"

#include "support/Impression.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace {

QByteArray Lire(const QString& chemin)
{
    QFile fichier(chemin);
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
}

const ArbreDeSources& LesSources()
{
    static const ArbreDeSources sources{QStringLiteral(ZELVANE_SOURCES),
                                        LireEtages(Lire(QStringLiteral(ZELVANE_SOURCES "/rooms.txt"))),
                                        QStringLiteral(ZELVANE_QTCORE)};
    return sources;
}

/// The files of zelvane_core and of the command-line tool, as the build has them.
QStringList FichiersDuNoyau()
{
    return QString::fromUtf8(Lire(QStringLiteral(ZELVANE_LISTE_NOYAU))).split(u'\n', Qt::SkipEmptyParts);
}

std::string EnLignes(const QStringList& fautes)
{
    return fautes.join(u'\n').toStdString();
}

TEST(Architecture, NoFileIncludesAHigherFloor)
{
    ASSERT_FALSE(FichiersDe(LesSources()).isEmpty());
    EXPECT_EQ(EnLignes(InclusionsMontantes(LesSources())), "");
}

TEST(Architecture, ThePictureInTheDocsShowsTheRoomsAsTheyAre)
{
    static const QRegularExpression rangee(R"(^ +\| +(\d+)  ([a-z/]+)/ )", QRegularExpression::MultilineOption);
    Etages etages;
    auto trouves = rangee.globalMatch(QString::fromUtf8(Lire(QStringLiteral(ZELVANE_DOCS "/architecture.md"))));
    while (trouves.hasNext()) {
        const auto trouve = trouves.next();
        etages.emplace(trouve.captured(2), trouve.captured(1).toInt());
    }
    EXPECT_EQ(etages, LesSources().etages);
}

TEST(Architecture, TheCoreAndTheToolKnowNoScreen)
{
    const QStringList noyau = FichiersDuNoyau();
    ASSERT_TRUE(noyau.contains("platform/PageDeCode.cpp"));
    ASSERT_TRUE(noyau.contains("pch_core.h"));
    EXPECT_EQ(EnLignes(InclusionsHorsQtCore(LesSources(), noyau)), "");
}

TEST(Architecture, QtCoreHeadersAreWhereTheyAreLookedFor)
{
    ASSERT_TRUE(QFile::exists(LesSources().enTetesQtCore + "/QString"));
    EXPECT_FALSE(QFile::exists(LesSources().enTetesQtCore + "/QColor"));
}

TEST(Architecture, NamesOfFilesAreSpelledInOnePlace)
{
    static const QRegularExpression deQt(R"(\bQFile::(en|de)codeName\b)");
    QStringList fautes;
    for (const QString& fichier : FichiersDe(LesSources())) {
        if (QString::fromUtf8(Lire(LesSources().racine + u'/' + fichier)).contains(deQt))
            fautes.append(fichier);
    }
    EXPECT_EQ(EnLignes(fautes), "") << "names may be any bytes: see platform/NomsSysteme.h";
}

TEST(Architecture, FilesStayShortEnoughToRead)
{
    constexpr int lignesAuPlus = 600;
    EXPECT_EQ(EnLignes(FichiersTropLongs(LesSources(), lignesAuPlus)), "");
}

} // namespace
