// The main of test programs without a screen.
#include "support/PlateformeDeTest.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    QCoreApplication application(argc, argv);
    InstallerPlateformeDeTest();
    return RUN_ALL_TESTS();
}
