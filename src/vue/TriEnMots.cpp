#include "vue/TriEnMots.h"

#include "catalogue/texte/TriDeTable.h"
#include "extensions/langue/modLang.h"

using namespace Qt::StringLiterals;

QString TriEnMots(const QString& marque)
{
    if (marque == MarqueDeTri(false))
        return LangMsg(u"msgTriCroissant"_s, u"tri croissant"_s);
    return marque == MarqueDeTri(true) ? LangMsg(u"msgTriDecroissant"_s, u"tri décroissant"_s).texte : QString();
}
