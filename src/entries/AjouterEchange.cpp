#include "entries/AjouterEchange.h"

#include "base/AfficherMsg.h"
#include "base/Avancement.h"
#include "base/SurUneLigne.h"
#include "catalogue/archive/NomsTenables.h"
#include "catalogue/table/MyLV.h"
#include "entries/Echange.h"
#include "extensions/langue/modLang.h"

#include <algorithm>
#include <numeric>
#include <vector>

using namespace Qt::StringLiterals;
using stockage::Cellule;
using stockage::Codage;

namespace {

constexpr qsizetype EntreesAuPlus = 20'000'000; // a text of empty lines would take all memory

/// The fields of one line, one after the other in UTF-8.
class ChampsDeLigne
{
public:
    explicit ChampsDeLigne(bool avecImage) : m_avecImage(avecImage) {}

    void Lire(QStringView ligne)
    {
        m_debuts.assign(1, 0);
        // Most lines hold nothing that would have to go, and are turned as they stand.
        m_octets = std::any_of(ligne.begin(), ligne.end(), EstIntenable) ? Nettoyer(ligne) : ligne.toUtf8();
        for (qsizetype tab = m_octets.indexOf('\t'); tab >= 0; tab = m_octets.indexOf('\t', tab + 1))
            m_debuts.push_back(tab + 1);
        m_debuts.push_back(m_octets.size() + 1);
    }

    qsizetype Dernier() const { return static_cast<qsizetype>(m_debuts.size()) - 2; }
    /// From 0; empty outside.
    QByteArrayView Champ(qsizetype numero) const
    {
        if (numero < 0 || numero > Dernier())
            return {};
        const qsizetype debut = m_debuts[static_cast<size_t>(numero)];
        const qsizetype fin = m_debuts[static_cast<size_t>(numero) + 1] - 1;
        return QByteArrayView(m_octets).sliced(debut, fin - debut);
    }

private:
    static bool EstIntenable(QChar c)
    {
        return c == u'|' || c == u'\r' || c == u'\n' || c == u'\0' || c == QChar::LineSeparator ||
               c == QChar::ParagraphSeparator;
    }
    /// A value has one line, and keeps its bars. The name of an image has its own way: as it is, no file of that name
    /// can lie in a folder.
    QByteArray Nettoyer(QStringView ligne) const
    {
        const qsizetype image = m_avecImage ? ligne.lastIndexOf(u'\t') + 1 : ligne.size();
        const QString valeurs = SurUneLigne(ligne.first(image).toString()).replace(QChar(u'\0'), u' ');
        return valeurs.toUtf8() + RendreTenable(ligne.sliced(image).toString()).toUtf8();
    }

    bool m_avecImage; // the last field is the name of an image
    QByteArray m_octets;
    std::vector<qsizetype> m_debuts; // of each field, and of what would follow the last one
};

class Ajouteur
{
public:
    Ajouteur(MyLV& table, const Correspondance& rangs, const FaconDAjouter& facon)
        : m_table(table), m_facon(facon), m_avant(table.ListItems.Count()), m_champs(facon.arrivee == Arrivee::Collees)
    {
        const int colonnes = std::max(table.ColumnHeaders.Count(), 1);
        m_sources.reserve(static_cast<size_t>(colonnes));
        for (int colonne = 1; colonne <= colonnes; ++colonne)
            m_sources.push_back(rangs.Source(colonne) - 1); // -1 for none
    }

    void AjouterLigne(QStringView ligne)
    {
        m_champs.Lire(ligne);
        PrendreCellules();
        const Cellule image = EstCollee() ? Utf8(m_champs.Champ(m_champs.Dernier())) : Cellule();
        if (image.taille > 0)
            m_images.append(image.Texte());
        for (int i = 0; i < std::max(m_facon.copies, 1); ++i)
            AjouterEntree(image).SetSelected(i == 0);
    }
    void Reprendre()
    {
        std::vector<int> ajoutees(static_cast<size_t>(m_table.ListItems.Count() - m_avant));
        std::iota(ajoutees.begin(), ajoutees.end(), m_avant + 1);
        m_table.ListItems.Retirer(ajoutees);
    }
    const QStringList& Images() const { return m_images; }

private:
    bool EstCollee() const { return m_facon.arrivee == Arrivee::Collees; }
    static Cellule Utf8(QByteArrayView octets)
    {
        return {octets.data(), static_cast<uint32_t>(octets.size()), Codage::Utf8, true};
    }

    /// Cells behind the last value are not written: a table may have very many columns.
    void PrendreCellules()
    {
        m_cellules.clear();
        for (size_t i = 0; i < m_sources.size(); ++i) {
            const bool estImage = EstCollee() && i > 0 && m_sources[i] >= m_champs.Dernier();
            const QByteArrayView champ = estImage ? QByteArrayView() : m_champs.Champ(m_sources[i]);
            if (champ.isEmpty() && i > 0)
                continue;
            m_cellules.resize(i, Utf8(QByteArrayView("")));
            m_cellules.push_back(Utf8(champ));
        }
    }

    ListItem AjouterEntree(const Cellule& image)
    {
        ListItem entree = EstCollee() ? AjouterAvecCle() : m_table.ListItems.Add(0, QString(), QString());
        entree.EcrireCellules(m_cellules, image);
        entree.SetSmallIcon(image.taille > 0 ? u"ico"_s : u"noico"_s);
        return entree;
    }
    /// The number is that of the entries from now on, or the next one that no other entry has.
    ListItem AjouterAvecCle()
    {
        m_numero = std::max(m_numero, m_table.ListItems.Count()) + 1;
        for (;; ++m_numero) {
            if (const ListItem entree = m_table.ListItems.Add(0, u'k' + QString::number(m_numero), QString()))
                return entree;
        }
    }

    MyLV& m_table;
    FaconDAjouter m_facon;
    int m_avant;
    int m_numero = 0;                 // of the key given last
    std::vector<qsizetype> m_sources; // by column: which field, from 0
    ChampsDeLigne m_champs;
    std::vector<Cellule> m_cellules;
    QStringList m_images;
};

} // namespace

bool PeutTenir(const MyLV& table, const EchangeLu& echange, int copies)
{
    if (echange.Entrees() <= (EntreesAuPlus - table.ListItems.Count()) / std::max(copies, 1))
        return true;
    AfficherMsg(
        LangMsg(u"msgTropDEntrees"_s, u"Une catégorie ne peut pas contenir autant d'entrées : rien n'a été ajouté."_s),
        MsgOk, QString());
    return false;
}

QStringList TitresDe(const MyLV& table)
{
    QStringList titres;
    titres.reserve(table.ColumnHeaders.Count());
    for (int i = 1; i <= table.ColumnHeaders.Count(); ++i)
        titres.append(table.ColumnHeaders(i).Text());
    return titres;
}

std::optional<QStringList> AjouterEchange(MyLV& table, const EchangeLu& echange, const Correspondance& rangs,
                                          const FaconDAjouter& facon, Avancement& avancement)
{
    const AjoutsDansTable ajouts(table);
    Ajouteur ajouteur(table, rangs, facon);
    const auto total = static_cast<int>(echange.Entrees());
    int fait = 0;
    const bool entier = echange.Parcourir([&](QStringView ligne) {
        avancement.Avancer(++fait, total);
        if (avancement.EstAbandonne())
            return false;
        ajouteur.AjouterLigne(ligne);
        return true;
    });
    if (!entier) {
        ajouteur.Reprendre();
        return std::nullopt;
    }
    return ajouteur.Images();
}
