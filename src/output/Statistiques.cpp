#include "output/Statistiques.h"

#include "catalogue/texte/Dependance.h"
#include "catalogue/texte/QrtClass.h"
#include "extensions/langue/modLang.h"
#include "platform/NomsSysteme.h"
#include "platform/PageDeCode.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QHash>
#include <QSet>
#include <QStringList>

#include <array>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int s_place = 101;

/// Puts the key of a date in the place of what `cle` holds.
void MettreCle(QByteArray& cle, QByteArrayView date)
{
    std::array<QByteArrayView, 3> parties;
    for (QByteArrayView& partie : parties) {
        const qsizetype barre = date.indexOf('/');
        partie = barre < 0 ? date : date.first(barre);
        date = barre < 0 ? QByteArrayView() : date.sliced(barre + 1);
    }
    cle.resize(0);
    for (const QByteArrayView partie : {parties[2], parties[1], parties[0]})
        cle.append(partie);
}

/// A date of a borrower's loans, with its key.
struct DateDePret
{
    QByteArray date;
    QByteArray cle;
};

struct Emprunteur
{
    QByteArray nom;
    int nombre = 0;
    DateDePret plusRecent;
    DateDePret plusAncien;
};

/// Goes over the loans and counts. Texts are UTF-8 here.
class Comptes
{
public:
    explicit Comptes(const QrtClass& doc) : m_doc(doc), m_dependante(EstDependante(doc)) {}

    void Compter();

    int Total() const { return m_total; }
    const std::vector<Emprunteur>& Emprunteurs() const { return m_emprunteurs; }
    /// How many borrowers there is no room for.
    qsizetype SansPlace() const { return m_rangs.size() - static_cast<qsizetype>(m_emprunteurs.size()); }

private:
    void CompterPret(QByteArrayView pret, const stockage::EntreeStockee& entree);
    int RangDe(QByteArrayView nom);
    bool DejaCompte(int rang, const stockage::EntreeStockee& entree);
    void NoterDate(Emprunteur& emprunteur, QByteArrayView date);

    const QrtClass& m_doc;
    bool m_dependante;
    int m_total = 0;
    std::vector<Emprunteur> m_emprunteurs; ///< those that there is room for
    QHash<QByteArray, int> m_rangs;        ///< of all, from 0
    QSet<std::pair<int, QByteArray>> m_dependances;
    QByteArray m_cle;
};

void Comptes::Compter()
{
    const MyLV& table = *m_doc.MyLV;
    QByteArray pret;
    for (int i = 1; i <= table.ListItems.Count(); ++i) {
        const stockage::EntreeStockee entree = table.StockageDe(i);
        pret.resize(0);
        entree.Champ(m_doc.IndexColPrete - 1).AjouterEnUtf8(pret); // nothing where no such column is known
        if (!pret.isEmpty())
            CompterPret(pret, entree);
    }
}

void Comptes::CompterPret(QByteArrayView pret, const stockage::EntreeStockee& entree)
{
    constexpr QByteArrayView separateur(" - ");
    const qsizetype fin = pret.indexOf(separateur);
    const int rang = RangDe(fin < 0 ? pret : pret.first(fin));
    const bool aPlace = rang < s_place;
    if (!m_dependante || !DejaCompte(rang, entree)) {
        ++m_total;
        if (aPlace)
            ++m_emprunteurs[static_cast<size_t>(rang)].nombre;
    }
    if (fin < 0 || !aPlace)
        return;
    const QByteArrayView reste = pret.sliced(fin + separateur.size());
    const qsizetype finDeDate = reste.indexOf(separateur);
    NoterDate(m_emprunteurs[static_cast<size_t>(rang)], finDeDate < 0 ? reste : reste.first(finDeDate));
}

int Comptes::RangDe(QByteArrayView nom)
{
    const auto trouve = m_rangs.constFind(QByteArray::fromRawData(nom.data(), nom.size()));
    if (trouve != m_rangs.cend())
        return *trouve;
    const int rang = static_cast<int>(m_rangs.size());
    const QByteArray copie = nom.toByteArray();
    m_rangs.insert(copie, rang);
    if (rang < s_place)
        m_emprunteurs.push_back({copie, 0, {}, {}});
    return rang;
}

bool Comptes::DejaCompte(int rang, const stockage::EntreeStockee& entree)
{
    QByteArray valeur;
    entree.Champ(m_doc.dependantcol - 1).AjouterEnUtf8(valeur);
    const qsizetype avant = m_dependances.size();
    m_dependances.insert({rang, valeur});
    return m_dependances.size() == avant;
}

void Comptes::NoterDate(Emprunteur& emprunteur, QByteArrayView date)
{
    if (date.isEmpty())
        return;
    MettreCle(m_cle, date);
    const auto prendre = [&](DateDePret& place) { place = {date.toByteArray(), m_cle}; };
    if (emprunteur.plusAncien.date.isEmpty() || emprunteur.plusAncien.cle > m_cle)
        prendre(emprunteur.plusAncien);
    if (emprunteur.plusRecent.date.isEmpty() || emprunteur.plusRecent.cle < m_cle)
        prendre(emprunteur.plusRecent);
}

/// A label has no blanks in front of it: a language file would lose them.
QString Ligne(const QString& libelle, const QString& valeur)
{
    return u"  "_s + libelle + valeur;
}

/// What stands before the values of each borrower, looked up once.
struct LibellesDEmprunteur
{
    QString nombre = LangMsg(u"msgStatNombre"_s, u"Nb entrées prêtées(dépendance):"_s);
    QString plusAncien = LangMsg(u"msgStatPlusAncien"_s, u"Date plus vieux prêt:"_s);
    QString plusRecent = LangMsg(u"msgStatPlusRecent"_s, u"Date du plus récent:"_s);
};

QStringList LignesDe(const Emprunteur& emprunteur, const LibellesDEmprunteur& libelles)
{
    return {u'[' + PageDeCode::DeUtf8(emprunteur.nom) + u']',
            Ligne(libelles.nombre, QString::number(emprunteur.nombre)),
            Ligne(libelles.plusAncien, PageDeCode::DeUtf8(emprunteur.plusAncien.date)),
            Ligne(libelles.plusRecent, PageDeCode::DeUtf8(emprunteur.plusRecent.date))};
}

} // namespace

QString RapportDesPrets(const QrtClass& doc)
{
    Comptes comptes(doc);
    comptes.Compter();
    QStringList lignes{
        u"Zelvane v2.2 by Morvenal"_s,
        u"^^^^^^^^^^^^^^"_s,
        u"___________________________________"_s,
        NomLisible(doc.filename()),
        u"___________________________________"_s,
        QString(),
        u"[Total]"_s,
        Ligne(LangMsg(u"msgStatEntrees"_s, u"Nombre d'entrées(sans dépendance):"_s), QString::number(doc.ItemsCount())),
        Ligne(LangMsg(u"msgStatPretees"_s, u"Nombre d'entrées pretées(dépendance):"_s),
              QString::number(comptes.Total())),
        QString()};
    const LibellesDEmprunteur libelles;
    for (const Emprunteur& emprunteur : comptes.Emprunteurs())
        lignes += LignesDe(emprunteur, libelles);
    if (comptes.SansPlace() > 0)
        lignes += LangMsg(u"msgEmprunteurs"_s, u"Emprunteurs qui n'ont pas trouvé place dans ce rapport : %1"_s)
                      .Remplacer(u"%1"_s, QString::number(comptes.SansPlace()));
    return lignes.join(u"\r\n") + u"\r\n"_s;
}

QString CmpDate(const QString& date)
{
    QByteArray cle;
    MettreCle(cle, date.toUtf8());
    return PageDeCode::DeUtf8(cle);
}
