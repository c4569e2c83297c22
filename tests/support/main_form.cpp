// The main of test programs with forms, run on the offscreen platform.
#include "support/PlateformeDeTest.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    // CTest also asks for the list of tests, without the environment of a run.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    InstallerPlateformeDeTest();
    return RUN_ALL_TESTS();
}
