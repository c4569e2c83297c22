#include "platform/FichiersIni.h"

#include "platform/Attributs.h"
#include "platform/NomsSysteme.h"
#include "platform/Plateforme.h"
#include "platform/Presence.h"
#include "platform/TexteIni.h"
#include "platform/VerrouFichier.h"

#include <QFile>
#include <QSaveFile>
#include <QThread>

#include <sys/stat.h>

namespace {

constexpr qsizetype FichiersRetenus = 8; // the language, the template, Zelvane.ini, and those of open documents

// File systems count time in steps, of two seconds at worst. Within one a second write leaves the time as it is.
constexpr qint64 PasDesHeures = 2'000'000'000;

qint64 Nanosecondes(const timespec& heure)
{
    return qint64(heure.tv_sec) * 1'000'000'000 + heure.tv_nsec;
}

constexpr int EssaisDeTenir = 10;
constexpr unsigned long EntreDeuxEssais = 20; // ms

} // namespace

FichiersIni::Lecture FichiersIni::Lire(const QString& fichier, const QString& section, const QString& cle) const
{
    const Contenu contenu = Actuel(fichier);
    if (contenu.etat != Contenu::Lu)
        return {std::nullopt, contenu.erreur};
    return {TexteIni::Lire(contenu.octets, section, cle), QString()};
}

bool FichiersIni::ParcourirSection(const QString& fichier, const QString& section,
                                   const std::function<void(QByteArrayView cle, QByteArrayView valeur)>& visiter) const
{
    const Contenu contenu = Actuel(fichier);
    TexteIni::Parcourir(contenu.octets, section, visiter);
    return contenu.etat == Contenu::Lu || contenu.etat == Contenu::Absent;
}

bool FichiersIni::Ecrire(const QString& fichier, const QString& section, const QString& cle, const QString& valeur)
{
    return Changer(fichier, [&](QByteArrayView texte) { return TexteIni::Ecrire(texte, section, cle, valeur); });
}

bool FichiersIni::EcrireCles(const QString& fichier, const QString& section, const TexteIni::Cles& cles)
{
    return Changer(fichier, [&](QByteArrayView texte) { return TexteIni::EcrireCles(texte, section, cles); });
}

bool FichiersIni::SupprimerCle(const QString& fichier, const QString& section, const QString& cle)
{
    return Changer(fichier, [&](QByteArrayView texte) { return TexteIni::SupprimerCle(texte, section, cle); });
}

bool FichiersIni::SupprimerSection(const QString& fichier, const QString& section)
{
    return Changer(fichier, [&](QByteArrayView texte) { return TexteIni::SupprimerSection(texte, section); });
}

FichiersIni::Contenu FichiersIni::Actuel(const QString& fichier) const
{
    const std::optional<Empreinte> empreinte = Regarder(fichier);
    const auto retenu = m_retenus.constFind(fichier);
    if (empreinte && retenu != m_retenus.cend() && retenu->empreinte == *empreinte)
        return retenu->contenu;
    const Contenu contenu = Charger(fichier);
    m_retenus.remove(fichier);
    // A second look: the file that was read need not be the one of the first.
    if (empreinte && contenu.etat == Contenu::Lu && Regarder(fichier) == empreinte) {
        if (m_retenus.size() >= FichiersRetenus)
            m_retenus.clear();
        m_retenus.insert(fichier, {*empreinte, contenu});
    }
    return contenu;
}

bool FichiersIni::Changer(const QString& fichier, const std::function<std::optional<QByteArray>(QByteArrayView)>& faire)
{
    const std::shared_ptr<const void> tenu = Tenir(fichier);
    const Contenu avant = tenu ? Actuel(fichier) : Contenu{Contenu::Ferme, {}, {}};
    // What could not be read must not be replaced.
    if (avant.etat == Contenu::Ferme || avant.etat == Contenu::Casse)
        return false;
    const std::optional<QByteArray> apres = faire(avant.octets);
    return apres && (*apres == avant.octets || Remplacer(fichier, *apres));
}

std::optional<FichiersIni::Empreinte> FichiersIniDisque::Regarder(const QString& chemin) const
{
    struct stat etat
    {
    };
    if (stat(OctetsDuChemin(chemin).constData(), &etat) != 0)
        return std::nullopt;
    const qint64 modifie = Nanosecondes(etat.st_mtim);
    const qint64 change = Nanosecondes(etat.st_ctim);
    const qint64 maintenant = plateforme().horloge->Maintenant().toMSecsSinceEpoch() * 1'000'000;
    if (change > maintenant - PasDesHeures)
        return std::nullopt;
    return Empreinte{etat.st_dev, etat.st_ino, etat.st_size, modifie, change};
}

FichiersIni::Contenu FichiersIniDisque::Charger(const QString& chemin) const
{
    if (!PeutExister(chemin))
        return {Contenu::Absent, {}, {}};
    QFile fichier(chemin);
    if (!fichier.open(QIODevice::ReadOnly))
        return {Contenu::Ferme, {}, {}};
    Contenu contenu{Contenu::Lu, fichier.readAll(), {}};
    if (fichier.error() != QFileDevice::NoError)
        return {Contenu::Casse, {}, fichier.errorString()};
    return contenu;
}

std::shared_ptr<const void> FichiersIniDisque::Tenir(const QString& chemin) const
{
    // Who writes here holds a file for moments; it is another file then.
    for (int i = 0; i < EssaisDeTenir; ++i) {
        auto verrou = std::make_shared<VerrouFichier>(chemin);
        if (verrou->Tient())
            return verrou;
        QThread::msleep(EntreDeuxEssais);
    }
    return nullptr;
}

bool FichiersIniDisque::Remplacer(const QString& chemin, const QByteArray& octets)
{
    // The rename below would take a read-only file's place without a word.
    if (AttributsDisque().EstLectureSeule(chemin))
        return false;
    QSaveFile fichier(chemin);
    return fichier.open(QIODevice::WriteOnly) && fichier.write(octets) == octets.size() && fichier.commit();
}
