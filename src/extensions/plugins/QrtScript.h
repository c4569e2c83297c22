// Classes for scripts, made by name from a plug-in ("QrtScript", "QRTWebScript"). The program itself makes neither.
#pragma once

#include <QObject>
#include <QString>

class ComposantsDuSysteme;

class QrtScript : public QObject
{
    Q_OBJECT

public:
    /// Pairs of blanks become one, once through from left to right, and blanks then become "+". Nothing else changes,
    /// whatever the name says. It is meant.
    Q_INVOKABLE QString UrlEncode(const QString& texte) const;
};

class QRTWebScript : public QObject
{
    Q_OBJECT

public:
    /// False, and no network is touched. It is meant.
    Q_INVOKABLE bool GetPage(const QString& url) const;
    /// Empty. It is meant.
    Q_INVOKABLE QString GetText(const QString& a, const QString& b) const;
};

/// Makes both reachable by name.
void InscrireScripts(ComposantsDuSysteme& composants);
