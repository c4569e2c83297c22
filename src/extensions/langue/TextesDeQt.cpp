#include "extensions/langue/TextesDeQt.h"

#include "extensions/langue/modLang.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

QString CodeDeLangue()
{
    return FichierLangue.isEmpty() ? u"fr"_s : LangMsg(u"msgCodeDeLangue"_s, u"fr"_s).texte;
}

} // namespace

TextesDeQt::~TextesDeQt()
{
    Retirer();
}

void TextesDeQt::Retirer()
{
    if (m_textes)
        QCoreApplication::removeTranslator(m_textes.get());
    m_textes.reset();
}

void TextesDeQt::Accorder()
{
    const QString code = CodeDeLangue();
    if (code == m_code)
        return;
    m_code = code;
    Retirer();
    auto textes = std::make_unique<QTranslator>();
    if (!textes->load(QLocale(code), u"qtbase"_s, u"_"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        return;
    m_textes = std::move(textes);
    QCoreApplication::installTranslator(m_textes.get());
}
