#include "catalogue/archive/VolumeDArchive.h"

#include "base/AfficherMsg.h"
#include "extensions/langue/modLang.h"

#include <iterator>

using namespace Qt::StringLiterals;

namespace {

/// "12,3 Mo".
QString EnMots(quint64 octets)
{
    static const QString unites[] = {u"octets"_s, u"Ko"_s, u"Mo"_s, u"Go"_s, u"To"_s};
    constexpr double pas = 1024;
    auto valeur = static_cast<double>(octets);
    size_t unite = 0;
    for (; valeur >= pas && unite + 1 < std::size(unites); ++unite)
        valeur /= pas;
    QString nombre = QString::number(valeur, 'f', unite == 0 ? 0 : 1);
    return nombre.replace(u'.', u',') + u' ' + unites[unite];
}

} // namespace

bool AccepterVolume(quint64 volume, quint64 taille)
{
    constexpr quint64 beaucoup = quint64(2) << 30;
    constexpr quint64 foisSaTaille = 200;
    if (volume <= beaucoup || volume / foisSaTaille <= taille)
        return true;
    const Message question = LangMsg(
        u"msgVolume"_s, u"Ce fichier de %1 contient %2 de données, ce qui est inhabituel. Voulez-vous l'ouvrir?"_s);
    return AfficherMsg(question.Remplacer(u"%1"_s, EnMots(taille)).Remplacer(u"%2"_s, EnMots(volume)), MsgOuiNon,
                       QString()) == RepOui;
}
