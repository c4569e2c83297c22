// JSON on one line, keys in the order in which they are written.
#pragma once

#include <QByteArray>
#include <QString>

class Json
{
public:
    Json& Debut(char crochet);
    Json& Fin(char crochet);
    Json& Cle(const char* nom);
    Json& Texte(const QString& texte);
    Json& Nombre(qint64 nombre);
    /// A number as it is written, such as "1000.5".
    Json& NombreTel(const QByteArray& chiffres);
    Json& Booleen(bool valeur);

    /// What was written since the last call; for output in pieces.
    QByteArray Prendre();

private:
    void Virgule();

    QByteArray m_sortie;
    bool m_suite = false;
};
