#include "columns/ChampDeTitre.h"

#include "base/AfficherMsg.h"
#include "extensions/langue/modLang.h"
#include "kit/ValideurDeLigne.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

void NeTaperQuUnTitre(QLineEdit& champ)
{
    auto* valideur = new ValideurDeLigne(&champ, u"|"_s);
    champ.setValidator(valideur);
    // Queued: the field is in the middle of taking the edit back.
    QObject::connect(
        valideur, &ValideurDeLigne::Refuse, &champ,
        [] {
            AfficherMsg(LangMsg(u"msg68"_s, u"Le caractere  | est interdit, veuillez l'enlever"_s), MsgOk, QString());
        },
        Qt::QueuedConnection);
}

void NeTaperQuUneLigne(QLineEdit& champ)
{
    champ.setValidator(new ValideurDeLigne(&champ));
}
