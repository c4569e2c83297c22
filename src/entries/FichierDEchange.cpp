#include "entries/FichierDEchange.h"

#include "base/AfficherMsg.h"
#include "extensions/langue/modLang.h"
#include "platform/NomsSysteme.h"
#include "platform/Plateforme.h"

#include <cerrno>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int Essais = 100; // other programs may make theirs between our deletion and ours
constexpr qsizetype Paquet = 1 << 20;

} // namespace

FichierDEchange::FichierDEchange() : m_chemin(plateforme().dossierProgramme + u"~qrtCopier.tmp"_s)
{
    // A new file, never one that is there: another program may be writing that, or it leads elsewhere.
    bool ouvert = false;
    for (int essai = 0; essai < Essais && !ouvert; ++essai) {
        SupprimerParChemin(m_chemin);
        ouvert =
            OuvrirParChemin(m_fichier, m_chemin, QIODevice::ReadWrite | QIODevice::NewOnly | QIODevice::Unbuffered);
        if (!ouvert && errno != EEXIST)
            break;
    }
    m_echoue = !ouvert;
}

void FichierDEchange::EcrireLigne(QStringView ligne)
{
    Ecrire(ligne.toUtf8() + "\r\n");
}

void FichierDEchange::Ecrire(QByteArrayView utf8)
{
    m_texte.append(utf8);
    if (m_texte.size() - m_depose >= Paquet || m_depose == 0)
        m_echoue = !Deposer() || m_echoue;
}

bool FichierDEchange::Deposer()
{
    if (m_echoue)
        return false;
    const qsizetype reste = m_texte.size() - m_depose;
    const bool ecrit = m_fichier.write(m_texte.constData() + m_depose, reste) == reste;
    m_depose = m_texte.size();
    return ecrit;
}

QString FichierDEchange::Relire()
{
    m_echoue = !Deposer() || m_echoue;
    const QByteArray lu = LireFichier();
    m_echoue = m_echoue || lu != m_texte;
    Supprimer();
    return QString::fromUtf8(m_texte);
}

QByteArray FichierDEchange::LireFichier()
{
    return !m_echoue && m_fichier.seek(0) ? m_fichier.readAll() : QByteArray();
}

void FichierDEchange::Supprimer()
{
    struct stat notre
    {
    };
    struct stat la
    {
    };
    const bool ouvert = m_fichier.isOpen() && fstat(m_fichier.handle(), &notre) == 0;
    const bool memes = ouvert && lstat(OctetsDuChemin(m_chemin).constData(), &la) == 0 && la.st_dev == notre.st_dev &&
                       la.st_ino == notre.st_ino;
    m_fichier.close();
    if (memes)
        SupprimerParChemin(m_chemin);
}

void PoserSurPressePapiers(FichierDEchange& fichier)
{
    plateforme().pressePapiers->Poser(fichier.Relire());
    if (fichier.AEchoue())
        AfficherMsg(LangMsg(u"msgEchange"_s,
                            u"Le fichier « %1 » n'a pas pu être écrit. Rien n'est perdu : la copie est "
                            u"dans le presse-papiers."_s)
                        .Remplacer(u"%1"_s, NomLisible(fichier.Chemin())),
                    MsgOk, QString());
}
