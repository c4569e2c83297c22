#include "catalogue/table/Collation.h"

#include "support/Impression.h"

#include <gtest/gtest.h>

#include <numeric>
#include <random>

namespace {

stockage::Cellule CelluleDe(const QByteArray& utf8)
{
    return {utf8.constData(), static_cast<uint32_t>(utf8.size()), stockage::Codage::Utf8, true};
}

std::vector<uint32_t> OrdreParComparaison(const QList<QByteArray>& textes, bool descendant)
{
    std::vector<uint32_t> ordre(static_cast<size_t>(textes.size()));
    std::iota(ordre.begin(), ordre.end(), 0U);
    std::stable_sort(ordre.begin(), ordre.end(), [&](uint32_t a, uint32_t b) {
        const int comparaison = Collation::Francaise().Comparer(CelluleDe(textes[a]), CelluleDe(textes[b]));
        return descendant ? comparaison > 0 : comparaison < 0;
    });
    return ordre;
}

std::vector<uint32_t> OrdreParCles(const QList<QByteArray>& textes, bool descendant)
{
    ClesDeTri cles(static_cast<size_t>(textes.size()));
    for (const QByteArray& texte : textes)
        cles.Ajouter(CelluleDe(texte));
    return cles.Ordre(descendant);
}

} // namespace

TEST(Collation, KeysOrderAsComparisonsDo)
{
    // Few letters and lengths around the eight bytes that a key is sorted by make many ties and near ties.
    std::mt19937 hasard(7);
    const QList<QByteArray> lettres{"a", "A", "à", "b", "é", "e", " ", "-", "œ", "1", "日"};
    QList<QByteArray> textes{"", "", "a"};
    for (int i = 0; i < 3000; ++i) {
        QByteArray texte(static_cast<qsizetype>(hasard() % 4) * 7, 'x');
        for (unsigned n = hasard() % 5; n > 0; --n)
            texte += lettres[static_cast<qsizetype>(hasard() % static_cast<unsigned>(lettres.size()))];
        textes.append(texte);
    }
    EXPECT_EQ(OrdreParCles(textes, false), OrdreParComparaison(textes, false));
    EXPECT_EQ(OrdreParCles(textes, true), OrdreParComparaison(textes, true));
}

TEST(Collation, ManyEqualLongTextsKeepTheirOrder)
{
    QList<QByteArray> textes(2000, QByteArray(500, 'z'));
    textes[1500] += 'a';
    std::vector<uint32_t> attendu(2000);
    std::iota(attendu.begin(), attendu.end(), 0U);
    std::rotate(attendu.begin() + 1500, attendu.begin() + 1501, attendu.end());
    EXPECT_EQ(OrdreParCles(textes, false), attendu);
    std::rotate(attendu.begin(), attendu.end() - 1, attendu.end());
    EXPECT_EQ(OrdreParCles(textes, true), attendu);
}

TEST(Collation, BothEncodingsOfATextAreEqual)
{
    const QByteArray huitBits = "\xC9t\xE9 \x9C", utf8 = "Été œ";
    const stockage::Cellule a{huitBits.constData(), 5, stockage::Codage::Cp1252, true};
    EXPECT_EQ(Collation::Francaise().Comparer(a, CelluleDe(utf8)), 0);
    EXPECT_EQ(Collation::Francaise().Comparer(a, stockage::Cellule()), 1) << "a missing cell is the empty text";
}
