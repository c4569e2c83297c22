// Reads a table of text, row by row: fields parted by a character, some of them in quotes (RFC 4180), lines that end
// with CR, LF or both. Whatever the bytes are, every character of them comes out, and memory has a bound.
#pragma once

#include "CodageCsv.h"

#include <QStringList>

#include <optional>

class QIODevice;

/// How a file is to be read.
struct FormatCsv
{
    CodageCsv codage = CodageCsv::Utf8;
    QChar separateur = u',';
    QChar guillemet = u'"'; ///< null for none
    bool entete = true;     ///< the first row holds titles

    friend bool operator==(const FormatCsv&, const FormatCsv&) = default;
};

/// What is wrong with a row.
enum DefautCsv : unsigned {
    SansDefaut = 0,
    GuillemetOuvert = 1,     ///< a quote never ends; it is taken as a character
    TexteApresGuillemet = 2, ///< characters behind the quote that ends a field; they are kept
    LigneCoupee = 4,         ///< longer than any row is; what follows is the next row
    TropDeChamps = 8,        ///< those beyond the last column are in the last one, with separators
    TropPeuDeChamps = 16,    ///< those that are missing are empty
};

struct LigneCsv
{
    QStringList champs;   ///< so many as the reader gives at most
    qsizetype nombre = 0; ///< of fields in the file, but for empty ones behind the last column
    qint64 numero = 0;    ///< of the line on which it begins, from 1
    unsigned defauts = SansDefaut;

    /// A line with nothing on it.
    bool EstVide() const { return nombre == 1 && champs.constFirst().isEmpty(); }
};

class LecteurCsv
{
public:
    static constexpr qsizetype ChampsAuPlus = 16384;

    /// Reads `texte` (not owned) from its beginning. `champsAuPlus`, from 1: further ones join the last.
    LecteurCsv(QIODevice& texte, const FormatCsv& format, qsizetype champsAuPlus = ChampsAuPlus);

    /// The next row; false at the end. Its defects are those of its text alone.
    bool Lire(LigneCsv& ligne);
    /// The device failed: there may be more than was read.
    bool EstInterrompu() const { return m_interrompu; }
    /// What could not be decoded so far.
    qint64 Illisibles() const { return m_decodeur.Illisibles(); }

private:
    void Remplir();
    bool Couper(QStringView texte, LigneCsv& ligne);
    bool Analyser(QStringView texte, bool fini, LigneCsv& ligne);

    QIODevice& m_source;
    FormatCsv m_format;
    qsizetype m_champsAuPlus;
    DecodeurCsv m_decodeur;
    QByteArray m_octets;
    QString m_texte; ///< decoded, from the beginning of a row on
    qsizetype m_debut = 0;
    qint64 m_numero = 1;
    bool m_fini = false;
    bool m_interrompu = false;
};
