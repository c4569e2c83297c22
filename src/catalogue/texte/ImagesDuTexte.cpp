#include "catalogue/texte/ImagesDuTexte.h"

#include "base/Nombres.h"

#include <QByteArrayView>

#include <algorithm>

namespace {

/// The lines of a text, one after the other.
class Parcours
{
public:
    explicit Parcours(const QByteArray& texte) : m_texte(texte) {}

    /// The next line without its end; false when there is none.
    bool Lire()
    {
        if (m_suite == m_texte.size())
            return false;
        const qsizetype saut = m_texte.indexOf('\n', m_suite);
        const qsizetype fin = saut < 0 ? m_texte.size() : saut;
        m_ligne = QByteArrayView(m_texte).sliced(m_suite, fin - m_suite);
        if (saut >= 0 && m_ligne.endsWith('\r'))
            m_ligne.chop(1);
        m_suite = saut < 0 ? fin : fin + 1;
        return true;
    }
    void Sauter(int lignes)
    {
        while (lignes-- > 0 && Lire()) {
        }
    }
    QByteArrayView Ligne() const { return m_ligne; }
    /// The next line's number behind "="; 0 without one.
    int LireNombre()
    {
        return Lire() ? VersEntier32(QString::fromLatin1(m_ligne.sliced(m_ligne.indexOf('=') + 1))).value_or(0) : 0;
    }

private:
    const QByteArray& m_texte;
    qsizetype m_suite = 0;
    QByteArrayView m_ligne;
};

/// The field behind so many "|" of an entry's line; empty where there are fewer.
QByteArrayView Champ(QByteArrayView ligne, int numero)
{
    QByteArrayView reste = ligne.sliced(ligne.indexOf('=') + 1);
    for (; numero > 0; --numero) {
        const qsizetype barre = reste.indexOf('|');
        if (barre < 0)
            return {};
        reste = reste.sliced(barre + 1);
    }
    const qsizetype barre = reste.indexOf('|');
    return barre < 0 ? reste : reste.first(barre);
}

/// Calls `action` with the image of each entry that has one; the views are pieces of the text.
template<class Action> void PourChaqueImage(const QByteArray& texte, const Action& action)
{
    constexpr int lignesAvantLesColonnes = 12;
    Parcours parcours(texte);
    parcours.Sauter(lignesAvantLesColonnes);
    const int colonnes = std::max(0, parcours.LireNombre());
    parcours.Sauter(colonnes + 1);
    while (parcours.Lire() && parcours.Ligne() != "[ListItems]") {
    }
    for (int reste = parcours.LireNombre(); reste > 0 && parcours.Lire(); --reste) {
        if (const QByteArrayView image = Champ(parcours.Ligne(), colonnes); !image.isEmpty())
            action(image);
    }
}

} // namespace

QSet<QByteArray> ImagesNommees(const QByteArray& texte)
{
    QSet<QByteArray> noms;
    PourChaqueImage(texte, [&noms](QByteArrayView image) {
        if (!noms.contains(QByteArray::fromRawData(image.data(), image.size())))
            noms.insert(image.toByteArray());
    });
    return noms;
}

TexteRenomme RenommerImages(const QByteArray& texte, const QHash<QByteArray, QByteArray>& noms)
{
    TexteRenomme renomme;
    qsizetype pris = 0; // of the text, so far
    PourChaqueImage(texte, [&](QByteArrayView image) {
        const auto nom = noms.constFind(QByteArray::fromRawData(image.data(), image.size()));
        if (nom == noms.cend())
            return;
        const qsizetype ou = image.data() - texte.constData();
        renomme.texte.append(QByteArrayView(texte).sliced(pris, ou - pris)).append(*nom);
        renomme.vus.insert(nom.key());
        pris = ou + image.size();
    });
    renomme.texte.append(QByteArrayView(texte).sliced(pris));
    return renomme;
}
