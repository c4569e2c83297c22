// Precompiled for speed; every file still includes what it uses.
#include <QtCore>

#include <gtest/gtest.h>
