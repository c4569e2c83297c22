#include "extensions/plugins/QrtScript.h"

#include "extensions/langue/modLang.h"
#include "platform/ComposantsDuSysteme.h"

using namespace Qt::StringLiterals;

QString QrtScript::UrlEncode(const QString& texte) const
{
    QString adresse = texte;
    return adresse.replace(u"  "_s, u" "_s).replace(u' ', u'+');
}

bool QRTWebScript::GetPage(const QString&) const
{
    return false;
}

QString QRTWebScript::GetText(const QString&, const QString&) const
{
    return {};
}

QString QrtTextes::LangMsg(const QString& cle, const QString& defaut) const
{
    return ::LangMsg(cle, defaut);
}

void InscrireScripts(ComposantsDuSysteme& composants)
{
    composants.Inscrire(u"QrtScript"_s, []() -> QObject* { return new QrtScript; });
    composants.Inscrire(u"QRTWebScript"_s, []() -> QObject* { return new QRTWebScript; });
    composants.Inscrire(u"QrtTextes"_s, []() -> QObject* { return new QrtTextes; });
}
