#include "kit/ManqueDeMemoire.h"

#include "base/AfficherMsg.h"
#include "extensions/langue/modLang.h"

void DireManqueDeMemoire()
{
    AfficherMsg(LangMsg(QStringLiteral("msgMemoire"),
                        QStringLiteral("La mémoire est insuffisante. L'opération n'a pas été menée à son terme.")),
                MsgOk, QString());
}
