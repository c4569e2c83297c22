#include "platform/FichiersIni.h"

#include "platform/Attributs.h"
#include "platform/Presence.h"
#include "platform/TexteIni.h"

#include <QFile>
#include <QSaveFile>

FichiersIni::Lecture FichiersIni::Lire(const QString& fichier, const QString& section, const QString& cle) const
{
    const Contenu contenu = Charger(fichier);
    if (contenu.etat != Contenu::Lu)
        return {std::nullopt, contenu.erreur};
    return {TexteIni::Lire(contenu.octets, section, cle), QString()};
}

bool FichiersIni::Ecrire(const QString& fichier, const QString& section, const QString& cle, const QString& valeur)
{
    const Contenu contenu = Charger(fichier);
    const std::optional<QByteArray> apres = TexteIni::Ecrire(contenu.octets, section, cle, valeur);
    return apres && Conclure(fichier, contenu, *apres);
}

bool FichiersIni::SupprimerCle(const QString& fichier, const QString& section, const QString& cle)
{
    const Contenu contenu = Charger(fichier);
    return Conclure(fichier, contenu, TexteIni::SupprimerCle(contenu.octets, section, cle));
}

bool FichiersIni::SupprimerSection(const QString& fichier, const QString& section)
{
    const Contenu contenu = Charger(fichier);
    return Conclure(fichier, contenu, TexteIni::SupprimerSection(contenu.octets, section));
}

bool FichiersIni::Conclure(const QString& fichier, const Contenu& avant, const QByteArray& apres)
{
    // What could not be read must not be replaced.
    if (avant.etat == Contenu::Ferme || avant.etat == Contenu::Casse)
        return false;
    return apres == avant.octets || Remplacer(fichier, apres);
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

bool FichiersIniDisque::Remplacer(const QString& chemin, const QByteArray& octets)
{
    // The rename below would take a read-only file's place without a word.
    if (AttributsDisque().EstLectureSeule(chemin))
        return false;
    QSaveFile fichier(chemin);
    return fichier.open(QIODevice::WriteOnly) && fichier.write(octets) == octets.size() && fichier.commit();
}
