#include "entries/FichierDEchange.h"

#include "base/AfficherMsg.h"
#include "base/Const_Vrac.h"
#include "extensions/langue/modLang.h"
#include "platform/NomsSysteme.h"
#include "platform/Plateforme.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype Morceau = 1 << 18;

/// A name beside the file that nobody else has; the descriptor is negative when none can be made.
int OuvrirACote(QByteArray& nom)
{
    nom = OctetsDuChemin(FichierDEchange::Chemin()) + "-XXXXXX";
    return mkostemp(nom.data(), O_CLOEXEC);
}

bool EstLeMeme(const struct stat& a, const struct stat& b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

} // namespace

QString FichierDEchange::Chemin()
{
    return DossierProgramme() + u"~qrtCopier.tmp"_s;
}

Message FichierDEchange::AvisDEchec()
{
    return LangMsg(u"msgEchangeSansFichier"_s,
                   u"Le fichier suivant n'a pas pu être écrit. Rien n'est perdu : tout a été copié dans le "
                   u"presse-papiers."_s) +
           u"\r\n"_s + NomLisible(Chemin());
}

FichierDEchange::FichierDEchange()
{
    m_echec = !Creer();
}

FichierDEchange::~FichierDEchange()
{
    if (!m_fini)
        Vider();
}

/// The file is complete before it has the name, so that no other program's is ever opened.
bool FichierDEchange::Creer()
{
    QByteArray nom;
    const int descripteur = OuvrirACote(nom);
    if (descripteur < 0)
        return false;
    m_fichier.open(descripteur, QIODevice::ReadWrite | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle);
    if (std::rename(nom.constData(), OctetsDuChemin(Chemin()).constData()) == 0)
        return true;
    unlink(nom.constData());
    m_fichier.close();
    return false;
}

void FichierDEchange::Ecrire(QByteArrayView utf8)
{
    m_texte.append(utf8);
    if (m_texte.size() - m_ecrits >= Morceau)
        Vider();
}

void FichierDEchange::Vider()
{
    const qsizetype reste = m_texte.size() - m_ecrits;
    if (!m_echec && m_fichier.write(m_texte.constData() + m_ecrits, reste) != reste)
        m_echec = true;
    m_ecrits = m_texte.size();
}

QString FichierDEchange::Terminer()
{
    Vider();
    m_echec = m_echec || !RelireEstBon();
    if (m_fichier.isOpen())
        Supprimer();
    m_fini = true;
    return QString::fromUtf8(m_texte);
}

bool FichierDEchange::RelireEstBon()
{
    return m_fichier.seek(0) && m_fichier.readAll() == m_texte;
}

/// Only the file of this copy: by now the name may be another program's. It is led aside first, as nobody can put
/// another file there between a look and the deletion then.
void FichierDEchange::Supprimer()
{
    struct stat mien = {};
    const bool connu = fstat(m_fichier.handle(), &mien) == 0;
    m_fichier.close();
    struct stat la = {};
    const QByteArray chemin = OctetsDuChemin(Chemin());
    if (!connu || lstat(chemin.constData(), &la) != 0 || !EstLeMeme(la, mien))
        return;

    QByteArray aCote;
    const int place = OuvrirACote(aCote);
    if (place < 0)
        return;
    close(place);
    if (std::rename(chemin.constData(), aCote.constData()) == 0 && lstat(aCote.constData(), &la) == 0 &&
        !EstLeMeme(la, mien) &&
        renameat2(AT_FDCWD, aCote.constData(), AT_FDCWD, chemin.constData(), RENAME_NOREPLACE) == 0)
        return; // it was somebody else's
    unlink(aCote.constData());
}

void PoserSurPressePapiers(FichierDEchange& fichier)
{
    plateforme().pressePapiers->Poser(fichier.Terminer());
    if (fichier.AEchoue())
        AfficherMsg(FichierDEchange::AvisDEchec(), MsgOk, QString());
}
