#include "catalogue/archive/NomsTenables.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool EstIntenable(QChar c)
{
    return c == u'|' || c.category() == QChar::Other_Control;
}

/// The beginning of a text that takes at most so many bytes; no character is cut.
QString Debut(const QString& texte, qsizetype octets)
{
    qsizetype fin = 0;
    while (fin < texte.size()) {
        const char16_t unite = texte[fin].unicode();
        const bool paire = texte[fin].isHighSurrogate() && fin + 1 < texte.size();
        octets -= paire ? 4 : unite < 0x80 ? 1 : unite < 0x800 ? 2 : 3;
        if (octets < 0)
            break;
        fin += paire ? 2 : 1;
    }
    return texte.first(fin);
}

struct Coupe
{
    QString corps;
    QString extension; ///< with its point; empty for none
};

Coupe Couper(const QString& nom)
{
    constexpr qsizetype plusLongueExtension = 16;
    const qsizetype point = nom.lastIndexOf(u'.');
    if (point <= 0 || nom.sliced(point).toUtf8().size() > plusLongueExtension)
        return {nom, QString()};
    return {nom.first(point), nom.sliced(point)};
}

} // namespace

QString RendreTenable(QString nom)
{
    std::replace_if(nom.begin(), nom.end(), EstIntenable, u'_');
    return nom;
}

QString NomsDistincts::Donner(const QString& nom)
{
    QString tenable = RendreTenable(nom);
    if (tenable.startsWith(u"Zelvane."_s, Qt::CaseInsensitive))
        tenable.prepend(u'_');
    const auto [corps, extension] = Couper(tenable);
    // Where the numbers of names that begin alike go on: else thousands of them would each try all before.
    constexpr qsizetype pourLeNumero = 8;
    const QString debut = Debut(corps, m_octets - extension.toUtf8().size() - pourLeNumero) + extension;
    int& dernier = m_numeros[debut.toCaseFolded()];
    for (int numero = 1;; numero = ++dernier) {
        dernier = std::max(dernier, numero);
        const QString suite = (numero > 1 ? u'-' + QString::number(numero) : QString()) + extension;
        const QString essai = Debut(corps, m_octets - suite.toUtf8().size()) + suite;
        if (const QString plie = essai.toCaseFolded(); !m_pris.contains(plie)) {
            m_pris.insert(plie);
            return essai;
        }
    }
}
