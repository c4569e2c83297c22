#include "cli/Json.h"

#include <utility>

Json& Json::Debut(char crochet)
{
    Virgule();
    m_sortie.append(crochet);
    m_suite = false;
    return *this;
}

Json& Json::Fin(char crochet)
{
    m_sortie.append(crochet);
    m_suite = true;
    return *this;
}

Json& Json::Cle(const char* nom)
{
    Virgule();
    m_sortie.append('"').append(nom).append("\":");
    m_suite = false;
    return *this;
}

Json& Json::Texte(const QString& texte)
{
    Virgule();
    m_sortie.append('"');
    const QByteArray octets = texte.toUtf8();
    for (const char c : octets) {
        switch (c) {
        case '"':
        case '\\':
            m_sortie.append('\\').append(c);
            break;
        case '\n':
            m_sortie.append("\\n");
            break;
        case '\r':
            m_sortie.append("\\r");
            break;
        case '\t':
            m_sortie.append("\\t");
            break;
        default:
            if (static_cast<uchar>(c) < 0x20)
                m_sortie.append("\\u00").append(QByteArray::number(c, 16).rightJustified(2, '0'));
            else
                m_sortie.append(c);
        }
    }
    m_sortie.append('"');
    m_suite = true;
    return *this;
}

Json& Json::Nombre(qint64 nombre)
{
    return NombreTel(QByteArray::number(nombre));
}

Json& Json::NombreTel(const QByteArray& chiffres)
{
    Virgule();
    m_sortie.append(chiffres);
    m_suite = true;
    return *this;
}

Json& Json::Booleen(bool valeur)
{
    return NombreTel(valeur ? "true" : "false");
}

QByteArray Json::Prendre()
{
    return std::exchange(m_sortie, QByteArray());
}

void Json::Virgule()
{
    if (m_suite)
        m_sortie.append(',');
    m_suite = false;
}
