#include "lending/Prets.h"

#include "base/Avancement.h"
#include "base/SurUneLigne.h"
#include "catalogue/texte/QrtClass.h"
#include "catalogue/texte/ValeursVues.h"
#include "platform/PageDeCode.h"

#include <QByteArray>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

/// The cells of one column, in UTF-8. Texts are made of those alone that are needed as such.
class CellulesDeColonne
{
public:
    CellulesDeColonne(const MyLV& table, int colonne) : m_table(table), m_colonne(colonne) {}

    /// Valid until the next call.
    const QByteArray& operator()(int position)
    {
        m_octets.resize(0);
        m_table.StockageDe(position).Champ(m_colonne - 1).AjouterEnUtf8(m_octets);
        return m_octets;
    }

private:
    const MyLV& m_table;
    int m_colonne;
    QByteArray m_octets;
};

/// The values of the selected entries, from the last to the first, but for those that are found among others by their
/// bars.
QSet<QByteArray> ValeursChoisies(const MyLV& table, int colonne, Avancement& avancement)
{
    const int total = table.ListItems.Count();
    CellulesDeColonne cellules(table, colonne);
    QSet<QByteArray> rencontrees, valeurs;
    ValeursVues vues;
    for (int i = total; i >= 1; --i) {
        avancement.Avancer(total - i + 1, total);
        if (!table.EstSelectionnee(i))
            continue;
        const QByteArray& valeur = cellules(i);
        if (rencontrees.contains(valeur))
            continue;
        const QByteArray gardee(valeur.constData(), valeur.size());
        rencontrees.insert(gardee);
        if (vues.Ajouter(PageDeCode::DeUtf8(gardee)))
            valeurs.insert(gardee);
    }
    return valeurs;
}

/// Selects every entry that has the value of a selected one in this column. A number that names no column does nothing.
void Etendre(MyLV& table, int colonne, Avancement& avancement)
{
    if (!table.ColumnHeaders.Existe(colonne))
        return;
    const QSet<QByteArray> valeurs = ValeursChoisies(table, colonne, avancement);
    const int total = table.ListItems.Count();
    CellulesDeColonne cellules(table, colonne);
    for (int i = 1; i <= total; ++i) {
        avancement.Avancer(i, total);
        if (!table.EstSelectionnee(i) && valeurs.contains(cellules(i)))
            table.Selectionner(i, i, true);
    }
}

} // namespace

QString TexteDuPret(const Pret& pret)
{
    return pret.nom + u" - "_s + pret.date;
}

void PreterEntrees(QrtClass& doc, const Pret& pret, Portee portee, const std::function<bool()>& remplacer,
                   Avancement& avancement)
{
    MyLV& table = *doc.MyLV;
    if (portee == Portee::Dependantes)
        Etendre(table, doc.dependantcol, avancement);

    const int colonne = doc.IndexColPrete;
    // A contact may have a bar in its name; in the file that would part the cell in two.
    const QByteArray neuf = SansSeparateurs(TexteDuPret(pret)).toUtf8();
    const QByteArray remplacant = colonne == 1 ? SansSeparateurs(pret.nom).toUtf8() : neuf;
    const int total = table.ListItems.Count();
    bool toutRemplacer = false;
    for (int i = total; i >= 1; --i) {
        avancement.Avancer(total - i + 1, total);
        if (!table.EstSelectionnee(i))
            continue;
        const bool libre = table.StockageDe(i).Champ(colonne - 1).taille == 0;
        toutRemplacer = toutRemplacer || (!libre && remplacer());
        if (libre || toutRemplacer)
            table.ListItems(i).EcrireUtf8(colonne, libre ? neuf : remplacant);
    }
    doc.IlFautSauver = true;
}

void RendreEntrees(QrtClass& doc, Portee portee, Avancement& avancement)
{
    MyLV& table = *doc.MyLV;
    // A dependant column that is the first one has no dependants here. It is meant.
    if (portee == Portee::Dependantes && doc.dependantcol > 1)
        Etendre(table, doc.dependantcol, avancement);
    const int colonne = doc.IndexColPrete;
    if (doc.dependantcol != 0)
        Etendre(table, colonne, avancement);

    const int total = table.ListItems.Count();
    for (int i = total; i >= 1; --i) {
        avancement.Avancer(total - i + 1, total);
        if (table.EstSelectionnee(i) && table.StockageDe(i).Champ(colonne - 1).taille > 0)
            table.ListItems(i).EcrireUtf8(colonne, QByteArrayView());
    }
    doc.IlFautSauver = true;
}
