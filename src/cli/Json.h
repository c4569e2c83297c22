// JSON on one line, keys in the order in which they are written.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <string>

class Json
{
public:
    Json& Debut(char crochet);
    Json& Fin(char crochet);
    Json& Cle(const char* nom);
    Json& Texte(const QString& texte);
    Json& TexteUtf8(QByteArrayView utf8);
    Json& Nombre(qint64 nombre);
    /// A number as it is written, such as "1000.5".
    Json& NombreTel(const QByteArray& chiffres);
    Json& Booleen(bool valeur);

    /// What was written since the last call; for output in pieces.
    QByteArray Prendre();
    /// How many bytes that would be.
    qsizetype Taille() const { return static_cast<qsizetype>(m_sortie.size()); }

private:
    void Virgule();
    void Echapper(char c);

    std::string m_sortie; // appends a byte in a few instructions, as QByteArray does not
    std::string m_ascii;  // room for a text
    bool m_suite = false;
};
