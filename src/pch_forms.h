// Precompiled for speed; every file still includes what it uses.
#include <QtWidgets>

#include <memory>
#include <optional>
#include <vector>
