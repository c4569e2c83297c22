// A text to be found in the bytes of a catalogue, letter case ignored and nothing else: é finds É, e does not find é.
// It has no wild cards.
//
// What the code page's own characters are in the other case is told by a table of its 256 bytes; texts in UTF-8 are
// folded by Unicode's simple rules, one character for one.
#pragma once

#include "catalogue/table/MyLVStockage.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <array>

class Aiguille
{
public:
    /// `texte` is not empty.
    Aiguille(const QString& texte, stockage::Codage codage);

    /// It holds a character that the encoding lacks: it is nowhere.
    bool EstIntrouvable() const { return m_repliee.isEmpty(); }

    /// Whether a piece of text without letter case, as Replier gives it, contains it. In the time of one pass.
    bool EstDans(QByteArrayView replie) const;
    /// Writes `texte` without letter case into `replie`. "|" and "=" stay, and nothing becomes one.
    void Replier(QByteArrayView texte, QByteArray& replie) const;

    /// The first place of `texte` at which it may stand; the end when it is nowhere. Line ends do not matter to it: who
    /// asks looks at the line with EstDans.
    const char* PlacePossible(const char* debut, const char* fin) const;
    /// Looks at a sample of the bytes to come: PlacePossible goes by what is rare there.
    void Accorder(QByteArrayView echantillon);

private:
    bool CommenceIci(const char* place) const;

    stockage::Codage m_codage;
    QByteArray m_repliee;
    // By its first bytes, no more than these, places are found; of two of them, the rare ones, in both cases.
    qsizetype m_tete = 0;
    std::array<qsizetype, 2> m_rares = {};
};
