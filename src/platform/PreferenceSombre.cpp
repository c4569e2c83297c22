#include "platform/PreferenceSombre.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

using namespace Qt::StringLiterals;

namespace {

const QString s_service = u"org.freedesktop.portal.Desktop"_s;
const QString s_chemin = u"/org/freedesktop/portal/desktop"_s;
const QString s_interface = u"org.freedesktop.portal.Settings"_s;
const QString s_espace = u"org.freedesktop.appearance"_s;
const QString s_cle = u"color-scheme"_s;

constexpr uint PrefereSombre = 1; // 0 is no preference, 2 light

} // namespace

PreferenceSombre::PreferenceSombre(const QDBusConnection& bus)
{
    QDBusConnection connexion = bus;
    if (!connexion.isConnected())
        return;
    // The bus looks up the types of a slot by their names: one that is not registered yet makes it refuse the slot.
    qRegisterMetaType<QDBusVariant>();
    // From whoever speaks for the portal: its name may have another owner by then.
    connexion.connect(QString(), s_chemin, s_interface, u"SettingChanged"_s, this,
                      SLOT(ReglageChange(QString, QString, QDBusVariant)));
    QDBusMessage question = QDBusMessage::createMethodCall(s_service, s_chemin, s_interface, u"Read"_s);
    question << s_espace << s_cle;
    auto* reponse = new QDBusPendingCallWatcher(connexion.asyncCall(question), this);
    connect(reponse, &QDBusPendingCallWatcher::finished, this, &PreferenceSombre::Repondre);
}

void PreferenceSombre::Repondre(QDBusPendingCallWatcher* reponse)
{
    reponse->deleteLater();
    const QDBusPendingReply<QDBusVariant> valeur = *reponse;
    if (!valeur.isError() && !m_dite)
        Prendre(valeur.value().variant());
}

void PreferenceSombre::ReglageChange(const QString& espace, const QString& cle, const QDBusVariant& valeur)
{
    if (espace != s_espace || cle != s_cle)
        return;
    m_dite = true;
    Prendre(valeur.variant());
}

/// Answers come wrapped once more than changes do.
void PreferenceSombre::Prendre(const QVariant& valeur)
{
    if (valeur.metaType() == QMetaType::fromType<QDBusVariant>()) {
        Prendre(valeur.value<QDBusVariant>().variant());
        return;
    }
    const bool sombre = valeur.toUInt() == PrefereSombre;
    if (sombre == m_sombre)
        return;
    m_sombre = sombre;
    emit Changee(m_sombre);
}
