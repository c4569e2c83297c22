#include "cli/Json.h"

#include <algorithm>

namespace {

bool AEchapper(char c)
{
    return c == '"' || c == '\\' || static_cast<uchar>(c) < 0x20;
}

} // namespace

Json& Json::Debut(char crochet)
{
    Virgule();
    m_sortie.push_back(crochet);
    m_suite = false;
    return *this;
}

Json& Json::Fin(char crochet)
{
    m_sortie.push_back(crochet);
    m_suite = true;
    return *this;
}

Json& Json::Cle(const char* nom)
{
    Virgule();
    m_sortie.push_back('"');
    m_sortie.append(nom).append("\":");
    m_suite = false;
    return *this;
}

Json& Json::Texte(const QString& texte)
{
    const bool ascii = std::all_of(texte.begin(), texte.end(), [](QChar c) { return c < QChar(0x80); });
    if (!ascii)
        return TexteUtf8(texte.toUtf8());
    m_ascii.clear();
    for (const QChar c : texte)
        m_ascii.push_back(c.toLatin1());
    return TexteUtf8(m_ascii);
}

Json& Json::TexteUtf8(QByteArrayView utf8)
{
    Virgule();
    m_sortie.push_back('"');
    const char* debut = utf8.begin();
    while (debut != utf8.end()) {
        // Hardly a text has anything to escape: what stands before it goes out at once.
        const char* fin = std::find_if(debut, utf8.end(), AEchapper);
        m_sortie.append(debut, static_cast<size_t>(fin - debut));
        if (fin == utf8.end())
            break;
        Echapper(*fin);
        debut = fin + 1;
    }
    m_sortie.push_back('"');
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
    m_sortie.append(chiffres.constData(), static_cast<size_t>(chiffres.size()));
    m_suite = true;
    return *this;
}

Json& Json::Booleen(bool valeur)
{
    return NombreTel(valeur ? "true" : "false");
}

QByteArray Json::Prendre()
{
    const QByteArray ecrit = QByteArray::fromStdString(m_sortie);
    m_sortie.clear();
    return ecrit;
}

void Json::Echapper(char c)
{
    switch (c) {
    case '"':
    case '\\':
        m_sortie.push_back('\\');
        m_sortie.push_back(c);
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
        m_sortie.append("\\u00").append(QByteArray::number(c, 16).rightJustified(2, '0').toStdString());
    }
}

void Json::Virgule()
{
    if (m_suite)
        m_sortie.push_back(',');
    m_suite = false;
}
