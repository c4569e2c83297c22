#include "base/SurUneLigne.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool EstSaut(QChar c)
{
    return c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

} // namespace

QString SurUneLigne(QString texte)
{
    // Most texts have none, and need no copy.
    if (std::none_of(texte.cbegin(), texte.cend(), EstSaut))
        return texte;
    texte.replace(u"\r\n"_s, u" "_s);
    std::replace_if(texte.begin(), texte.end(), EstSaut, u' ');
    return texte;
}

QString SansSeparateurs(const QString& texte)
{
    if (std::none_of(texte.cbegin(), texte.cend(), [](QChar c) { return c == u'|' || EstSaut(c); }))
        return texte;
    return SurUneLigne(texte).replace(u'|', u'\u00A6'); // the broken bar is in the code page
}
