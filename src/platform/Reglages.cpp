#include "platform/Reglages.h"

#include "platform/NomsSysteme.h"

#include <QFile>
#include <QSettings>
#include <QStandardPaths>
#include <QStringList>
#include <QTemporaryFile>

namespace {

/// What is stored has no case of letters.
QString Chemin(const QString& section, const QString& cle)
{
    return section.toLower() + u'/' + cle.toLower();
}

/// All spellings under which the file holds what `chemin` names, such as a line written by hand; that of the program
/// first, which is the newest.
QStringList Orthographes(const QSettings& fichier, const QString& chemin)
{
    QStringList trouvees;
    for (const QString& cle : fichier.allKeys()) {
        if (cle == chemin)
            trouvees.prepend(cle);
        else if (cle.compare(chemin, Qt::CaseInsensitive) == 0)
            trouvees.append(cle);
    }
    return trouvees;
}

} // namespace

ReglagesFichier::ReglagesFichier(const QString& fichier)
    : m_fichier(std::make_unique<QSettings>(fichier, QSettings::IniFormat))
{
}

ReglagesFichier::~ReglagesFichier() = default;

QString ReglagesFichier::FichierParDefaut()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/zelvane/zelvane.ini";
}

std::optional<QString> ReglagesFichier::Lire(const QString& section, const QString& cle) const
{
    const QStringList orthographes = Orthographes(*m_fichier, Chemin(section, cle));
    if (orthographes.isEmpty())
        return std::nullopt;
    const QVariant valeur = m_fichier->value(orthographes.first());
    // A line edited by hand with a comma and no quotes comes back as a list.
    if (valeur.typeId() == QMetaType::QStringList)
        return valeur.toStringList().join(QStringLiteral(", "));
    if (valeur.typeId() == QMetaType::QByteArray)
        return CheminDesOctets(valeur.toByteArray());
    return valeur.toString();
}

void ReglagesFichier::Ecrire(const QString& section, const QString& cle, const QString& valeur)
{
    // Windows store their state at every resize: what does not change costs no write.
    if (Lire(section, cle) == valeur)
        return;
    const QString chemin = Chemin(section, cle);
    for (const QString& autre : Orthographes(*m_fichier, chemin))
        m_fichier->remove(autre);
    // The file is UTF-8, which a path need not be.
    m_fichier->setValue(chemin, AOctetsBruts(valeur) ? QVariant(OctetsDuChemin(valeur)) : QVariant(valeur));
}

void ReglagesFichier::Deposer()
{
    m_fichier->sync();
}

std::optional<QString> ReglagesFichier::LireDepose(const QString& section, const QString& cle) const
{
    // QSettings reads a file again when its time has changed. Where another process stores while it reads, it can keep
    // the old values with the new time, and never sees the new ones. A copy has no past.
    QFile depose(m_fichier->fileName());
    QTemporaryFile copie;
    if (!depose.open(QIODevice::ReadOnly) || !copie.open())
        return std::nullopt;
    copie.write(depose.readAll());
    copie.close();
    return ReglagesFichier(copie.fileName()).Lire(section, cle);
}
