#include "ValeursProches.h"

#include "SourceDeTest.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

using namespace Qt::StringLiterals;

namespace {

/// The pairs that are found to be near, of texts that all differ.
std::set<std::pair<uint32_t, uint32_t>> Trouvees(const QStringList& textes)
{
    const Hachage hachage;
    ValeursProches valeurs(hachage);
    for (const QString& texte : textes)
        valeurs.Numero(texte);
    SuiviDeTest suivi;
    EXPECT_TRUE(valeurs.Comparer(suivi, 0, 1));
    std::set<std::pair<uint32_t, uint32_t>> paires;
    for (uint32_t un = 0; un < valeurs.Count(); ++un) {
        for (const uint32_t deux : valeurs.Voisins(un))
            paires.emplace(std::min(un, deux), std::max(un, deux));
    }
    return paires;
}

/// A text with one to three changes of a letter.
QString Abimer(QString texte, std::mt19937& hasard)
{
    const auto tirer = [&hasard](qsizetype n) { return static_cast<qsizetype>(hasard() % static_cast<uint32_t>(n)); };
    for (qsizetype fautes = 1 + tirer(3); fautes > 0; --fautes) {
        const qsizetype ou = tirer(texte.size() - 1);
        const QChar lettre(static_cast<char16_t>(u'a' + tirer(26)));
        switch (tirer(4)) {
        case 0:
            texte.insert(ou, lettre);
            break;
        case 1:
            texte.remove(ou, 1);
            break;
        case 2:
            texte[ou] = lettre;
            break;
        default:
            std::swap(texte[ou], texte[ou + 1]);
            break;
        }
    }
    return texte;
}

} // namespace

TEST(ValeursProches, FindsAllThatComparingEachWithEachFinds)
{
    std::mt19937 hasard(7);
    QStringList textes;
    for (int i = 0; i < 400; ++i) {
        QString texte;
        const uint32_t lettres = 3 + hasard() % 24;
        for (uint32_t j = 0; j < lettres; ++j)
            texte += hasard() % 7 == 0 && j > 0 ? QChar(u' ') : QChar(static_cast<char16_t>(u'a' + hasard() % 26));
        texte = texte.trimmed() + u"zq"_s;
        textes.append(texte);
        for (int j = 0; j < 3; ++j)
            textes.append(Abimer(texte, hasard));
    }
    QStringList distincts;
    std::set<std::u16string> vus;
    for (const QString& texte : textes) {
        const Forme forme = FormeDe(texte);
        if (vus.insert(forme.triee + u'|' + forme.nombres).second)
            distincts.append(texte);
    }
    std::set<std::pair<uint32_t, uint32_t>> attendues;
    for (uint32_t i = 0; i < distincts.size(); ++i) {
        for (uint32_t j = i + 1; j < distincts.size(); ++j) {
            if (PresqueEgales(FormeDe(distincts[i]), FormeDe(distincts[j])))
                attendues.emplace(i, j);
        }
    }
    EXPECT_GT(attendues.size(), 500U);
    EXPECT_EQ(Trouvees(distincts), attendues);
}

TEST(ValeursProches, OneValueHasOneNumber)
{
    const Hachage hachage;
    ValeursProches valeurs(hachage);
    EXPECT_EQ(valeurs.Numero(u"Aja"), 0U);
    EXPECT_EQ(valeurs.Numero(u"Blue"), 1U);
    EXPECT_EQ(valeurs.Numero(u"aja !"), 0U);
    EXPECT_EQ(valeurs.Numero(u"Volume 12"), 2U);
    EXPECT_EQ(valeurs.Numero(u"Volume 1 2"), 3U) << "the letters are the same, the numbers are not";
    EXPECT_EQ(valeurs.Count(), 4U);
}

TEST(ValeursProches, ACrowdIsComparedWithItsNeighboursAlone)
{
    // All begin alike; those that are near differ in their middle and stand side by side in the alphabet.
    QStringList textes;
    for (int i = 0; i < 3000; ++i) {
        const QString milieu = QString::number(100000 + i * 7919 % 90000).replace(u'0', u'x');
        QString lettres;
        for (const QChar c : milieu)
            lettres += c.isDigit() ? QChar(static_cast<char16_t>(u'a' + c.digitValue() * 2)) : c;
        textes.append(u"commencement "_s + lettres + u"fin"_s);
    }
    textes.append(u"commencement tout autre chose"_s);
    textes.append(u"commencement tout autre chosee"_s);
    const auto paires = Trouvees(textes);
    EXPECT_TRUE(paires.contains({3000, 3001}));
    EXPECT_LE(paires.size(), 3002 * ValeursProches::VoisinsMax / 2);
}
