#include "entries/ColonnesDeCategorie.h"

#include "base/AfficherMsg.h"
#include "extensions/langue/modLang.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool Refuser(const QString& cle, const QString& texte)
{
    AfficherMsg(LangMsg(cle, texte), MsgOk, QString());
    return false;
}

} // namespace

void ColonnesDeCategorie::Choisir(int position)
{
    if (position == m_choisie)
        return;
    LacherIntacte();
    m_choisie = Existe(position) ? position : 0;
}

void ColonnesDeCategorie::Renommer(const QString& titre)
{
    if (m_choisie == 0 || TitreFige() || titre == TitreChoisi())
        return;
    m_titres[m_choisie - 1] = titre;
    m_intacte = false;
}

void ColonnesDeCategorie::Ajouter()
{
    const qsizetype vide = m_titres.lastIndexOf(QString());
    if (vide < 0)
        m_titres.append(QString());
    m_choisie = static_cast<int>(vide < 0 ? m_titres.size() : vide + 1);
    m_intacte = false;
}

void ColonnesDeCategorie::Enchainer()
{
    const bool nouvelle = !m_titres.contains(QString());
    Ajouter();
    m_intacte = nouvelle;
}

void ColonnesDeCategorie::LacherIntacte()
{
    if (!m_intacte)
        return;
    m_intacte = false;
    m_titres.removeLast();
    m_choisie = Nombre();
}

bool ColonnesDeCategorie::Supprimer()
{
    if (m_choisie == 0)
        return false;
    if (TitreFige())
        return Refuser(u"msg56"_s, u"Vous ne pouvez pas supprimer cette colonne"_s);
    if (AfficherMsg(LangMsg(u"msg57"_s, u"Etes-vous sure de vouloir supprimer cette colonne"_s), MsgOuiNon,
                    QString()) != RepOui)
        return false;
    m_titres.removeAt(m_choisie - 1);
    m_intacte = false;
    if (m_dependante == m_choisie)
        m_dependante = 0;
    else if (m_dependante > m_choisie)
        --m_dependante;
    // Nothing is in hand after the first one went.
    --m_choisie;
    return true;
}

bool ColonnesDeCategorie::ADesTitres() const
{
    return std::ranges::any_of(m_titres, [](const QString& titre) { return !titre.isEmpty(); });
}

void ColonnesDeCategorie::Remplacer(const QStringList& titres)
{
    m_titres = titres;
    m_choisie = 1;
    m_dependante = 0;
    m_intacte = false;
}

void ColonnesDeCategorie::Monter()
{
    if (PeutMonter())
        Echanger(m_choisie, m_choisie - 1);
}

void ColonnesDeCategorie::Descendre()
{
    if (PeutDescendre())
        Echanger(m_choisie, m_choisie + 1);
}

void ColonnesDeCategorie::Echanger(int position, int voisine)
{
    m_titres.swapItemsAt(position - 1, voisine - 1);
    m_choisie = voisine;
    m_intacte = false;
    if (m_dependante > 0)
        m_dependante = voisine;
}

void ColonnesDeCategorie::ChoisirDependante(int position)
{
    m_dependante = Existe(position) ? position : 0;
    if (m_dependante == m_choisie)
        m_intacte = false;
}

bool ColonnesDeCategorie::Verifier()
{
    LacherIntacte();
    if (m_titres.contains(QString()))
        return Refuser(u"msg53"_s,
                       u"Une Colonne n'a pas de nom, donnez lui un nom ou supprimer là avant de poursuivre"_s);
    if (m_titres.isEmpty())
        return Refuser(u"msg54"_s, u"Il faut au moins une colone !"_s);
    // No title is empty by now: a choice that was made has a name.
    if (Dependant && m_dependante == 0)
        return Refuser(u"msg55"_s, u"La colone dependante n'a pas de nom"_s);
    return true;
}
