#include "columns/EditerColonnes.h"

#include "base/AfficherMsg.h"
#include "catalogue/texte/QrtClass.h"
#include "columns/ColonnePrete.h"
#include "extensions/langue/modLang.h"

using namespace Qt::StringLiterals;

namespace {

constexpr float LargeurColonne = 800; // units of 1/1440 inch

bool Refuser(const Message& message)
{
    AfficherMsg(message, MsgOk, QString());
    return false;
}

/// Whether a column has the title, letter case aside.
bool TitrePris(const QrtClass& doc, const QString& titre)
{
    const QString minuscules = titre.toLower();
    for (int i = 1; i <= doc.ColCount(); ++i) {
        if (doc.MyLV->ColumnHeaders(i).Text().toLower() == minuscules)
            return true;
    }
    return false;
}

} // namespace

bool AjouterColonne(QrtClass& doc, const QString& titre)
{
    if (titre.isEmpty())
        return Refuser(LangMsg(u"msg4"_s, u"Veuillez entrer un nom"_s));
    if (TitrePris(doc, titre))
        return Refuser(LangMsg(u"msg5"_s, u"Une colonne porte déjà le même nom veuillez en changer"_s));
    doc.MyLV->ColumnHeaders.Add(0, titre).SetWidth(LargeurColonne);
    ChercherColPrete(doc);
    doc.IlFautSauver = true;
    return true;
}

void ChoisirDependante(QrtClass& doc, int numero)
{
    doc.dependantcol = numero;
    doc.IlFautSauver = true;
}
