#include "columns/FusionnerColonnes.h"

#include "base/AfficherMsg.h"
#include "catalogue/texte/QrtClass.h"
#include "columns/RefaireCellules.h"
#include "extensions/langue/modLang.h"

using namespace Qt::StringLiterals;
using stockage::Cellule;
using stockage::Codage;

namespace {

bool EstChoisie(const QrtClass& doc, const ChoixDeColonne& choix)
{
    return choix.position >= 0 && choix.NommeUneColonne(doc);
}

/// Two values with a text between them, which stand together until the next two.
class Collage
{
public:
    explicit Collage(const QString& separateur) : m_separateur(separateur) {}

    Cellule Coller(const Cellule& a, const Cellule& b)
    {
        const Codage encodage = EncodageDe(a, b);
        m_octets.resize(0);
        Ajouter(a, encodage);
        m_octets.append(*m_separateur.Octets(encodage));
        Ajouter(b, encodage);
        return {m_octets.constData(), static_cast<uint32_t>(m_octets.size()), encodage, true};
    }

private:
    Codage EncodageDe(const Cellule& a, const Cellule& b) const
    {
        const auto est1252 = [](const Cellule& cellule) {
            return cellule.taille == 0 || cellule.codage == Codage::Cp1252;
        };
        return est1252(a) && est1252(b) && m_separateur.Octets(Codage::Cp1252) ? Codage::Cp1252 : Codage::Utf8;
    }

    void Ajouter(const Cellule& cellule, Codage encodage)
    {
        if (encodage == Codage::Utf8)
            cellule.AjouterEnUtf8(m_octets);
        else
            m_octets.append(cellule.debut, static_cast<qsizetype>(cellule.taille));
    }

    TexteTape m_separateur;
    QByteArray m_octets;
};

/// `a` and `b`: the columns that stay and go, from 0.
void FusionnerCellules(Cellules& cellules, int a, int b, Collage& collage)
{
    const Cellule collee = collage.Coller(CelluleDe(cellules, a), CelluleDe(cellules, b));
    EcrireCellule(cellules, a, collee);
    // The first column is no cell that could go: the second one takes its place.
    if (b == 0)
        EcrireCellule(cellules, 0, CelluleDe(cellules, 1));
    RetirerCellule(cellules, b == 0 ? 1 : b);
}

} // namespace

bool PeutFusionner(const QrtClass& doc, const FusionDeColonnes& fusion)
{
    if (!EstChoisie(doc, fusion.premiere) || !EstChoisie(doc, fusion.seconde))
        return Refuser(LangMsg(u"msg15"_s, u"veuillez selectionner deux colonnes existantes"_s));
    if (fusion.premiere.texte == fusion.seconde.texte)
        return Refuser(LangMsg(u"msg16"_s, u"Veuillez selectionner deux colonnes differentes"_s));
    if (fusion.separateur.contains(u'|'))
        return Refuser(LangMsg(u"msg17"_s, u"Le séparateur ne peut pas contenir le caractere  | "_s));
    return true;
}

bool AccepterSeparateur(const QString& separateur)
{
    if (!separateur.isEmpty())
        return true;
    // The second line is in no language but this one. It is meant.
    const Message question = LangMsg(u"msg18"_s, u"Le séparateur est vide. Continuer quand meme?"_s) +
                             u"\nLe contenu des deux colonnes sera collé"_s;
    return AfficherMsg(question, MsgOuiNon, QString()) == RepOui;
}

void Fusionner(QrtClass& doc, const FusionDeColonnes& fusion, Avancement& avancement)
{
    const int a = fusion.premiere.position;
    const int b = fusion.seconde.position;
    RefaireCellules(
        doc, TexteTape(fusion.separateur).EncodagePour(doc),
        [&] {
            return [a, b, collage = Collage(fusion.separateur)](Cellules& cellules) mutable {
                FusionnerCellules(cellules, a, b, collage);
            };
        },
        avancement);
    doc.MyLV->ColumnHeaders.Remove(b + 1);
    doc.MyLV->SuivreColonnes([b](int colonne) { return colonne == b ? -1 : colonne - (colonne > b ? 1 : 0); });
    doc.IlFautSauver = true;
}
