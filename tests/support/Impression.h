// Lets GoogleTest print Qt's texts as texts.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <ostream>

inline void PrintTo(const QString& texte, std::ostream* flux)
{
    *flux << '"' << texte.toStdString() << '"';
}
inline void PrintTo(const QByteArray& octets, std::ostream* flux)
{
    *flux << '"' << octets.left(2000).toPercentEncoding(" []|=/,;:?!+*()'").toStdString() << '"';
}
inline void PrintTo(const QStringList& textes, std::ostream* flux)
{
    *flux << "[" << textes.join(QStringLiteral(" | ")).toStdString() << "]";
}
