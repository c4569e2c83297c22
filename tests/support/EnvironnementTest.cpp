// What CTest gives a test program, so that none depends on the desktop that it runs on.
#include <QByteArrayList>
#include <QFile>
#include <QtGlobal>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

/// The variables that the program was started with, not those that it gave itself since.
QByteArrayList Recues()
{
    QFile environnement(QStringLiteral("/proc/self/environ"));
    return environnement.open(QIODevice::ReadOnly) ? environnement.readAll().split('\0') : QByteArrayList();
}

} // namespace

TEST(Environnement, ReachesATestProgramWhole)
{
    if (!qEnvironmentVariableIsSet("ZELVANE_PAR_CTEST"))
        GTEST_SKIP() << "run by hand";
    const QByteArrayList recues = Recues();
    EXPECT_THAT(recues, testing::Contains("TZ=UTC"));
    EXPECT_THAT(recues, testing::Contains("LC_ALL=C.UTF-8"));
#ifdef ZELVANE_FORMES
    EXPECT_THAT(recues, testing::Contains("QT_QPA_PLATFORM=offscreen"));
#endif
}
