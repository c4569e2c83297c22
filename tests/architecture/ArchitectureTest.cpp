// The floors of the source tree: what may include what, and what the core may know of.
#include "architecture/Inclusions.h"

#include <QFile>

#include <gtest/gtest.h>

namespace {

const ArbreDeSources& LesSources()
{
    static const ArbreDeSources sources{QStringLiteral(ZELVANE_SOURCES),
                                        {{"platform", 1},
                                         {"base", 2},
                                         {"extensions", 3},
                                         {"catalogue", 4},
                                         {"images", 5},
                                         {"output", 6},
                                         {"entries", 7},
                                         {"columns", 8},
                                         {"search", 9},
                                         {"lending", 10},
                                         {"shell", 11},
                                         {"cli", 12},
                                         {"app", 12}},
                                        QStringLiteral(ZELVANE_QTCORE)};
    return sources;
}

/// The files of zelvane_core and of the command-line tool, as the build has them.
QStringList FichiersDuNoyau()
{
    QFile liste(QStringLiteral(ZELVANE_LISTE_NOYAU));
    if (!liste.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(liste.readAll()).split(u'\n', Qt::SkipEmptyParts);
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

TEST(Architecture, FilesStayShortEnoughToRead)
{
    constexpr int lignesAuPlus = 600;
    EXPECT_EQ(EnLignes(FichiersTropLongs(LesSources(), lignesAuPlus)), "");
}

} // namespace
