#include "entries/Echange.h"

#include "base/Avancement.h"
#include "catalogue/table/MyLV.h"

#include <QByteArray>

#include <algorithm>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;
using stockage::Cellule;
using stockage::EntreeStockee;

namespace {

constexpr QStringView Tag = u"[Zelvane]";
constexpr QStringView FinDeLigne = u"\r\n";
constexpr qsizetype Morceau = 1 << 18;
constexpr qsizetype TitresAuPlus = 1 << 20; // a text of tabs alone would take all memory, in rows of the mapping

/// Takes the line away that `reste` begins with. All of it when no line end follows.
QStringView PrendreLigne(QStringView& reste)
{
    const qsizetype fin = reste.indexOf(FinDeLigne);
    const QStringView ligne = fin < 0 ? reste : reste.first(fin);
    reste = reste.sliced(fin < 0 ? reste.size() : fin + FinDeLigne.size());
    return ligne;
}

class RedacteurDEchange
{
public:
    RedacteurDEchange(const MyLV& table, const std::function<void(QByteArrayView)>& recevoir)
        : m_table(table), m_colonnes(table.ColumnHeaders.Count()), m_recevoir(recevoir)
    {
        m_octets.reserve(2 * Morceau);
    }

    void Tete(const QString& dossier)
    {
        m_octets.append(Tag.toUtf8() + "\r\n");
        for (int i = 1; i <= m_colonnes; ++i)
            m_octets.append(m_table.ColumnHeaders(i).Text().toUtf8() + '\t');
        m_octets.append(dossier.toUtf8() + "\r\n");
    }
    void Entree(const EntreeStockee& entree)
    {
        if (entree.EstTranche() && entree.EstReguliere() && m_table.ColonnesSource() == m_colonnes)
            TelleQuelle(entree);
        else
            ParCellules(entree);
        m_octets.append("\r\n");
        if (m_octets.size() >= Morceau)
            Vider();
    }
    void Vider()
    {
        m_recevoir(m_octets);
        m_octets.resize(0);
    }

private:
    /// A line of the file holds the same fields in the same order.
    void TelleQuelle(const EntreeStockee& entree)
    {
        const qsizetype debut = m_octets.size();
        entree.ToutesEnUne().AjouterEnUtf8(m_octets);
        std::replace(m_octets.begin() + debut, m_octets.end(), '|', '\t');
    }
    void ParCellules(const EntreeStockee& entree)
    {
        const Cellule image = entree.LireSurPlace(m_cellules);
        for (size_t i = 0; i < static_cast<size_t>(m_colonnes); ++i) {
            if (i < m_cellules.size())
                m_cellules[i].AjouterEnUtf8(m_octets);
            m_octets.append('\t');
        }
        image.AjouterEnUtf8(m_octets);
    }

    const MyLV& m_table;
    int m_colonnes;
    const std::function<void(QByteArrayView)>& m_recevoir;
    QByteArray m_octets;
    std::vector<Cellule> m_cellules;
};

} // namespace

void EcrireEchange(const MyLV& table, const QString& dossier, Avancement& avancement,
                   const std::function<void(QByteArrayView)>& recevoir)
{
    RedacteurDEchange redacteur(table, recevoir);
    redacteur.Tete(dossier);
    const int total = table.ListItems.Count();
    for (int i = 1; i <= total; ++i) {
        avancement.Avancer(i, total);
        if (table.EstSelectionnee(i))
            redacteur.Entree(table.StockageDe(i));
    }
    redacteur.Vider();
}

QString TexteDEchange(const MyLV& table, const QString& dossier)
{
    QByteArray utf8;
    SansAvancement sans;
    EcrireEchange(table, dossier, sans, [&utf8](QByteArrayView octets) { utf8.append(octets); });
    return QString::fromUtf8(utf8);
}

EchangeLu::EchangeLu(QString texte) : m_texte(std::move(texte)), m_lignes(m_texte)
{
    m_tag = PrendreLigne(m_lignes);
    m_titres = PrendreLigne(m_lignes);
    if (m_titres.count(u'\t') > TitresAuPlus)
        m_titres = {};
}

bool EchangeLu::EstEchange() const
{
    return m_tag == Tag && !m_titres.isEmpty();
}

QStringList EchangeLu::Champs() const
{
    return m_titres.isEmpty() ? QStringList() : m_titres.toString().split(u'\t');
}

QStringList EchangeLu::Titres() const
{
    QStringList titres = Champs();
    if (!titres.isEmpty())
        titres.removeLast();
    return titres;
}

QString EchangeLu::Dossier() const
{
    return m_titres.sliced(m_titres.lastIndexOf(u'\t') + 1).toString();
}

qsizetype EchangeLu::Entrees() const
{
    return m_lignes.count(FinDeLigne);
}

bool EchangeLu::Parcourir(const std::function<bool(QStringView ligne)>& faire) const
{
    QStringView reste = m_lignes;
    for (qsizetype fin = 0; (fin = reste.indexOf(FinDeLigne)) >= 0; reste = reste.sliced(fin + FinDeLigne.size())) {
        if (!faire(reste.first(fin)))
            return false;
    }
    return true;
}
