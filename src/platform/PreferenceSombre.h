// Whether the user prefers dark windows: what the desktop's settings portal tells, and tells again when it changes.
#pragma once

#include <QDBusConnection>
#include <QObject>

class QDBusPendingCallWatcher;
class QDBusVariant;

class PreferenceSombre : public QObject
{
    Q_OBJECT

public:
    /// Asks on `bus`; the answer comes later. Where there is no bus or no portal, nothing is preferred.
    explicit PreferenceSombre(const QDBusConnection& bus);

    bool Sombre() const { return m_sombre; }

signals:
    void Changee(bool sombre);

private slots:
    void ReglageChange(const QString& espace, const QString& cle, const QDBusVariant& valeur);

private:
    void Repondre(QDBusPendingCallWatcher* reponse);
    void Prendre(const QVariant& valeur);

    bool m_sombre = false;
    bool m_dite = false; ///< a change was told: what was asked before it is out of date
};
