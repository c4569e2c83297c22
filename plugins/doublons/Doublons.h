// The plug-in: it finds the entries that a category has more than once. Its members are called by name.
#pragma once

#include <ZelvanePlugin.h>

class Doublons : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString Name READ Name CONSTANT)
    Q_PROPERTY(QString Description READ Description CONSTANT)
    Q_PROPERTY(QString Author READ Author CONSTANT)
    Q_PROPERTY(QString AuthorUrl READ Rien CONSTANT)
    Q_PROPERTY(QString EMail READ Rien CONSTANT)
    Q_PROPERTY(int VersionMajor READ VersionMajor CONSTANT)
    Q_PROPERTY(int VersionMinor READ VersionMinor CONSTANT)
    Q_PROPERTY(int VersionRevision READ VersionMinor CONSTANT)

public:
    QString Name() const;
    QString Description() const;
    QString Author() const { return QStringLiteral("Zelvane"); }
    QString Rien() const { return {}; }
    int VersionMajor() const { return 1; }
    int VersionMinor() const { return 0; }

    Q_INVOKABLE void WhatIsIt(QString& genres) { genres = QStringLiteral("other"); }
    Q_INVOKABLE void initme(QObject* document, int fenetre)
    {
        m_document = document;
        m_fenetre = fenetre;
    }
    Q_INVOKABLE void showForm();

private:
    QObject* m_document = nullptr;
    int m_fenetre = 0;
};
