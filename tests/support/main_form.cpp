// The main of test programs with forms, run on the offscreen platform.
#include "support/PlateformeDeTest.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    InstallerPlateformeDeTest();
    return RUN_ALL_TESTS();
}
