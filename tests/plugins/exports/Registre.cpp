// What a library of the kit has: here texts are in French.
#include <ZelvanePlugin.h>

ZELVANE_BIBLIOTHEQUE
