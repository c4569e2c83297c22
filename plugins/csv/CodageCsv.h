// How the bytes of a text become characters.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringDecoder>

#include <array>
#include <optional>

class QIODevice;

enum class CodageCsv { Utf8, Utf16Le, Utf16Be, Windows1252, Latin9, Cp850, MacRoman };

/// All of them, in the order in which they are offered.
QList<CodageCsv> CodagesCsv();
/// What a user calls it.
QString NomDuCodage(CodageCsv codage);

/// The encoding that a text seems to have, by its mark, its zeros, whether it is UTF-8, and else by how many letters of
/// Western languages it would have. Reads from the beginning, and goes back there.
CodageCsv DevinerCodage(QIODevice& texte);

/// Makes characters of bytes, piece by piece. A mark at the beginning is no character. What is no character of the
/// encoding becomes U+FFFD.
class DecodeurCsv
{
public:
    explicit DecodeurCsv(CodageCsv codage);

    QString Decoder(QByteArrayView octets);
    /// What remains at the end: U+FFFD where the last character is cut short.
    QString Finir();
    /// How many U+FFFD were delivered so far.
    qint64 Illisibles() const { return m_illisibles; }

private:
    void Compter(QStringView texte);

    std::optional<QStringDecoder> m_unicode;
    std::array<char16_t, 256> m_table{}; ///< of an encoding of one byte a character
    QByteArray m_reste;                  ///< the beginning of a character
    qint64 m_illisibles = 0;
    CodageCsv m_codage;
};
