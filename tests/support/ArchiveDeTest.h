// Zip archives for tests: put together byte by byte, so that they can lie, or by foreign tools.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <optional>

/// One entry; what is not told is true.
struct EntreeZip
{
    QByteArray nom;
    QByteArray contenu;
    bool comprime = false;
    uint16_t drapeaux = 0;  ///< 1: encrypted, 0x800: the name is UTF-8
    uint32_t attributs = 0; ///< external; the upper half is a Unix mode
    std::optional<uint16_t> methode = std::nullopt;
    std::optional<uint32_t> crc = std::nullopt;
    std::optional<uint64_t> taille = std::nullopt;    ///< as announced
    std::optional<QByteArray> donnees = std::nullopt; ///< the bytes as they lie in the archive
};

constexpr uint16_t DrapeauChiffre = 1;
constexpr uint16_t DrapeauUtf8 = 0x800;

/// The archive's bytes. More than 65535 entries, and sizes beyond 4 GiB, are written in the 64-bit form.
QByteArray FaireArchive(const QList<EntreeZip>& entrees, const QByteArray& commentaire = QByteArray());

/// Raw deflate.
QByteArray Deflate(const QByteArray& octets);

/// What a program prints, started in `dossier`; fails the test unless it ends with 0.
QByteArray Lancer(const QString& programme, const QStringList& arguments, const QString& dossier = QString());

/// Runs something in a child process and returns what it returns. For limits that cannot be taken back.
int DansUnEnfant(const std::function<int()>& action);
/// The same, as a user who may not look into the folder `ferme`, which lies in `parent`. What the child could not set
/// up is returned as 100 or more.
int SansAcces(const QString& parent, const QString& ferme, const std::function<int()>& action);
/// In a child: writes of more than so many bytes to one file fail, as they do on a full disk.
void LimiterTailleDesFichiers(uint64_t octets);
