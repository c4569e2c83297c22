#include "Registre.h"

#include "extensions/plugins/QrtScript.h"

#include <ZelvanePlugin.h>

#include <cstring>

ZELVANE_BIBLIOTHEQUE

namespace {

QObject* Faire(void*, const char* nom)
{
    return std::strcmp(nom, "QrtTextes") == 0 ? new QrtTextes : nullptr;
}

const ZelvaneRegistre Registre{sizeof(ZelvaneRegistre), nullptr, nullptr, Faire};

} // namespace

RegistreDeTest::RegistreDeTest()
{
    ZelvaneRegistreDuProgramme = &Registre;
}

RegistreDeTest::~RegistreDeTest()
{
    ZelvaneRegistreDuProgramme = nullptr;
}
