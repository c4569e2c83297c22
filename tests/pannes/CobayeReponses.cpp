#include "pannes/CobayeReponses.h"

#include <QEventLoop>
#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;

void DireLigne(const QByteArray& ligne)
{
    std::printf("%s\n", ligne.constData());
    std::fflush(stdout);
}

CobayeReponses::CobayeReponses()
    : m_messagesAvant(InstallerPresentateur(static_cast<PresentateurMessages*>(this))),
      m_fichiersAvant(InstallerPresentateur(static_cast<PresentateurFichiers*>(this)))
{
}

CobayeReponses::~CobayeReponses()
{
    InstallerPresentateur(m_messagesAvant);
    InstallerPresentateur(m_fichiersAvant);
}

/// Windows that ask have an event loop of their own.
void CobayeReponses::Patienter() const
{
    if (Lenteur == 0)
        return;
    QEventLoop boucle;
    QTimer::singleShot(Lenteur, &boucle, &QEventLoop::quit);
    boucle.exec();
}

int CobayeReponses::Afficher(const Message& message, int genre, const QString& /*titre*/)
{
    DireLigne("message " + (message.cle.isEmpty() ? message.texte : message.cle).toUtf8());
    Patienter();
    if (genre == MsgOk)
        return RepOk;
    // The question of a window that closes is the one without a key.
    if (message.cle.isEmpty())
        return ALaFermeture;
    // No saves, the other way round from the wording.
    return message.cle == u"msg61"_s ? RepNon : RepOui;
}

QString CobayeReponses::DemanderMotDePasse(const QString& /*titre*/, const QString& /*invite*/)
{
    return {};
}

std::optional<ReponseFichier> CobayeReponses::Ouvrir(const DemandeFichier& /*demande*/)
{
    return std::nullopt;
}

std::optional<ReponseFichier> CobayeReponses::Enregistrer(const DemandeFichier& /*demande*/)
{
    Patienter();
    if (Cible.isEmpty())
        return std::nullopt;
    // Asked once more, it gives up instead of going round for ever.
    ReponseFichier reponse{{Cible}, TypeDeCible};
    Cible.clear();
    return reponse;
}
