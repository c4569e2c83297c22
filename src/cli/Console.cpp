#include "cli/Console.h"

#include "platform/NomsSysteme.h"
#include "platform/PageDeCode.h"

#include <QFile>
#include <QStringDecoder>

#include <cerrno>
#include <cstdio>
#include <utility>

#include <termios.h>
#include <unistd.h>

namespace {

constexpr qsizetype TailleTampon = 1 << 16;

/// Turns the terminal's echo off while it lives.
class SansEcho
{
public:
    SansEcho()
    {
        m_pris = tcgetattr(STDIN_FILENO, &m_avant) == 0;
        termios sans = m_avant;
        sans.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        if (m_pris)
            tcsetattr(STDIN_FILENO, TCSAFLUSH, &sans);
    }
    ~SansEcho()
    {
        if (m_pris)
            tcsetattr(STDIN_FILENO, TCSAFLUSH, &m_avant);
    }
    SansEcho(const SansEcho&) = delete;
    SansEcho& operator=(const SansEcho&) = delete;

private:
    termios m_avant{};
    bool m_pris = false;
};

QString PremiereLigne(QByteArray octets)
{
    if (const qsizetype fin = octets.indexOf('\n'); fin >= 0)
        octets.truncate(fin);
    if (octets.endsWith('\r'))
        octets.chop(1);
    QStringDecoder decodeur(QStringDecoder::Utf8);
    const QString texte = decodeur(octets);
    return decodeur.hasError() ? PageDeCode::VersTexte(octets) : texte;
}

} // namespace

Console::Console() : m_precedent(InstallerPresentateur(this)) {}

Console::~Console()
{
    InstallerPresentateur(m_precedent);
}

bool Console::LireMotDePasse(const QString& fichier)
{
    QFile source;
    if (!OuvrirParChemin(source, fichier, QIODevice::ReadOnly))
        return false;
    m_motDePasse = PremiereLigne(source.readLine(4096));
    return true;
}

int Console::Afficher(const Message& message, int genre, const QString&)
{
    DireErreur(message.cle.isEmpty() ? message.texte : message.cle + QStringLiteral(": ") + message.texte);
    if (std::exchange(m_motDePasseManque, false))
        DireErreur(QStringLiteral("Le fichier est protégé par un mot de passe : donnez-le par --password-file FICHIER "
                                  "ou par la variable ZELVANE_MOT_DE_PASSE."));
    switch (genre) {
    case MsgOk:
        return RepOk;
    case MsgOuiNon:
        return RepNon;
    default:
        return RepAnnuler;
    }
}

QString Console::DemanderMotDePasse(const QString&, const QString&)
{
    if (m_motDePasse)
        return *m_motDePasse;
    if (qEnvironmentVariableIsSet("ZELVANE_MOT_DE_PASSE"))
        return PremiereLigne(qgetenv("ZELVANE_MOT_DE_PASSE"));
    if (!isatty(STDIN_FILENO)) {
        m_motDePasseManque = true;
        return QString();
    }
    QByteArray reponse;
    {
        // Before the user is asked: turning it off drops what was typed until then.
        const SansEcho sansEcho;
        std::fputs("Mot de passe : ", stderr);
        std::fflush(stderr);
        for (int c = std::getchar(); c != EOF && c != '\n'; c = std::getchar())
            reponse.append(static_cast<char>(c));
    }
    std::fputc('\n', stderr);
    return PremiereLigne(reponse);
}

void DireErreur(const QString& texte)
{
    const QByteArray ligne = texte.toUtf8() + '\n';
    std::fwrite(ligne.constData(), 1, static_cast<size_t>(ligne.size()), stderr);
}

void SortieStandard::Ecrire(QByteArrayView octets)
{
    m_tampon.append(octets.data(), octets.size());
    if (m_tampon.size() >= TailleTampon)
        Vider();
}

SortieStandard::Etat SortieStandard::Finir()
{
    Vider();
    return m_etat;
}

void SortieStandard::Vider()
{
    const char* octets = m_tampon.constData();
    auto reste = static_cast<size_t>(m_tampon.size());
    while (EstOuverte() && reste > 0) {
        const ssize_t ecrits = ::write(STDOUT_FILENO, octets, reste);
        if (ecrits < 0 && errno == EINTR)
            continue;
        if (ecrits <= 0) {
            m_etat = ecrits < 0 && errno == EPIPE ? Etat::SansLecteur : Etat::Cassee;
            break;
        }
        octets += ecrits;
        reste -= static_cast<size_t>(ecrits);
    }
    m_tampon.resize(0);
}
