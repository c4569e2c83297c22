// What fuzz targets of documents share.
#pragma once

#include "base/AfficherMsg.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/TexteQrt.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>

#include <cstdio>
#include <cstdlib>

inline void Verifier(bool vrai, const char* quoi)
{
    if (vrai)
        return;
    std::fprintf(stderr, "fuzz: %s\n", quoi);
    std::abort();
}

/// Answers every message and counts them. Installed while it lives.
class CompteurDeMessages : public PresentateurMessages
{
public:
    CompteurDeMessages() { InstallerPresentateur(this); }
    ~CompteurDeMessages() override { InstallerPresentateur(nullptr); }
    CompteurDeMessages(const CompteurDeMessages&) = delete;
    CompteurDeMessages& operator=(const CompteurDeMessages&) = delete;

    int messages = 0;
    int Afficher(const Message&, int, const QString&) override { return ++messages, int(RepOk); }
    QString DemanderMotDePasse(const QString&, const QString&) override { return {}; }
};

/// The template of a folder to work in; in memory where there is such a place.
inline QString ModeleDeDossier(const QString& nom)
{
    const QString memoire = QStringLiteral("/dev/shm");
    return (QFileInfo(memoire).isWritable() ? memoire : QDir::tempPath()) + u'/' + nom + QStringLiteral("-XXXXXX");
}

inline void EcrireOctets(const QString& chemin, const QByteArray& octets)
{
    QFile fichier(chemin);
    Verifier(fichier.open(QIODevice::WriteOnly) && fichier.write(octets) == octets.size(), "no room to work in");
}

inline QByteArray LireOctets(const QString& chemin)
{
    QFile fichier(chemin);
    Verifier(fichier.open(QIODevice::ReadOnly), "a file cannot be read");
    return fichier.readAll();
}

/// The text that a save of the document writes.
inline QByteArray TexteDe(const Categorie& doc, stockage::Codage codage)
{
    struct EnMemoire : Puits
    {
        QByteArray octets;
        bool Recevoir(const char* debut, size_t taille) override
        {
            octets.append(debut, static_cast<qsizetype>(taille));
            return true;
        }
    };
    EnMemoire puits;
    EcrireTexteQrt(doc, "2", EntreesEcrites::Toutes, codage, puits);
    return puits.octets;
}

/// True when a line may announce so many copies that one input takes a second: the bound on them has a test of its own.
inline bool AnnonceBeaucoup(const QByteArray& texte)
{
    for (const QByteArray& ligne : texte.split('\n')) {
        const double nombre = ligne.mid(ligne.indexOf('=') + 1).trimmed().replace(',', '.').toDouble();
        if (nombre > 5000 && nombre < 2e6)
            return true;
    }
    return false;
}
