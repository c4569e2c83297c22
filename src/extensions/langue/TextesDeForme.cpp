#include "extensions/langue/TextesDeForme.h"

#include "extensions/langue/modLang.h"

using namespace Qt::StringLiterals;

std::optional<QString> TextesDeForme::Titre() const
{
    return Lire(u"Caption"_s);
}

std::optional<QString> TextesDeForme::Caption(const QString& controle, const QString& actuel) const
{
    return Remplacer(controle + u"_C"_s, actuel);
}

std::optional<QString> TextesDeForme::Texte(const QString& controle, const QString& actuel) const
{
    return Remplacer(controle + u"_T"_s, actuel);
}

std::optional<QString> TextesDeForme::InfoBulle(const QString& controle, const QString& actuel) const
{
    return Remplacer(controle + u"_TT"_s, actuel);
}

std::optional<QString> TextesDeForme::NomAccessible(const QString& controle, const QString& actuel) const
{
    return Remplacer(controle + u"_A"_s, actuel);
}

std::optional<QString> TextesDeForme::DescriptionAccessible(const QString& controle, const QString& actuel) const
{
    return Remplacer(controle + u"_AD"_s, actuel);
}

std::optional<QString> TextesDeForme::InfoBulleBouton(const QString& barre, int bouton, const QString& actuel) const
{
    return Remplacer(barre + u"_TT_"_s + QString::number(bouton), actuel);
}

std::optional<QString> TextesDeForme::Lire(const QString& cle) const
{
    const QString texte = DecoderTexte(LireProfil(cle, QString(), m_nom, FichierLangue));
    return texte.isEmpty() ? std::nullopt : std::optional(texte);
}

std::optional<QString> TextesDeForme::Remplacer(const QString& cle, const QString& actuel) const
{
    return actuel.isEmpty() ? std::nullopt : Lire(cle);
}
