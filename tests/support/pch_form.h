// Precompiled for speed; every file still includes what it uses.
#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>
