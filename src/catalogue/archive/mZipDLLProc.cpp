#include "catalogue/archive/mZipDLLProc.h"

#include "base/AfficherMsg.h"
#include "extensions/langue/modLang.h"
#include "platform/PageDeCode.h"

bool MotDePasseAbandonne = false;

std::optional<QString> QuestionMotDePasse()
{
    constexpr qsizetype plusLongMotDePasse = 256;
    if (MotDePasseAbandonne)
        return std::nullopt;
    const QString motDePasse = DemanderMotDePasse(
        LangMsg(QStringLiteral("msgCrypte"), QStringLiteral("Fichier Crypté")),
        LangMsg(QStringLiteral("msgCrypteInvite"),
                QStringLiteral("Veuillez entrer le mot de passe!\n\nAvertissement : Si vous réenregistrez cette "
                               "catégorie, le mot de passe ne sera pas concervé.")));
    MotDePasseAbandonne = motDePasse.isEmpty();
    if (MotDePasseAbandonne)
        return std::nullopt;
    return motDePasse.left(plusLongMotDePasse);
}

QList<QByteArray> OctetsDuMotDePasse(const QString& motDePasse)
{
    QList<QByteArray> essais;
    if (PageDeCode::EstRepresentable(motDePasse))
        essais.append(PageDeCode::VersOctets(motDePasse));
    const QByteArray utf8 = motDePasse.toUtf8();
    if (!essais.contains(utf8))
        essais.append(utf8);
    return essais;
}
