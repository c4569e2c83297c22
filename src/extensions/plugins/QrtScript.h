// Objects that a plug-in makes by name: "QrtScript", "QRTWebScript", "QrtTextes". The program itself makes none of
// them.
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

/// The texts of a plug-in in the language that the program speaks.
class QrtTextes : public QObject
{
    Q_OBJECT

public:
    /// What the program's own messages go through: the text of the key, or `defaut`, which is recorded for translators.
    Q_INVOKABLE QString LangMsg(const QString& cle, const QString& defaut) const;
};

/// Makes all of them reachable by name.
void InscrireScripts(ComposantsDuSysteme& composants);
