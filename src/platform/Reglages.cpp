#include "platform/Reglages.h"

#include <QFile>
#include <QSettings>
#include <QStandardPaths>
#include <QStringList>
#include <QTemporaryFile>

namespace {

QString Chemin(const QString& section, const QString& cle)
{
    return section + u'/' + cle.toLower();
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
    const QVariant valeur = m_fichier->value(Chemin(section, cle));
    if (!valeur.isValid())
        return std::nullopt;
    // A line edited by hand with a comma and no quotes comes back as a list.
    if (valeur.typeId() == QMetaType::QStringList)
        return valeur.toStringList().join(QStringLiteral(", "));
    return valeur.toString();
}

void ReglagesFichier::Ecrire(const QString& section, const QString& cle, const QString& valeur)
{
    // Windows store their state at every resize: what does not change costs no write.
    if (Lire(section, cle) != valeur)
        m_fichier->setValue(Chemin(section, cle), valeur);
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
