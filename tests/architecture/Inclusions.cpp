#include "architecture/Inclusions.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

#include <optional>

namespace {

struct Inclusion
{
    int ligne;
    bool guillemets; ///< "..." rather than <...>
    QString nom;
};

QString Contenu(const QString& chemin)
{
    QFile fichier(chemin);
    return fichier.open(QIODevice::ReadOnly) ? QString::fromUtf8(fichier.readAll()) : QString();
}

QList<Inclusion> InclusionsDe(const QString& chemin)
{
    static const QRegularExpression forme(R"(^\s*#\s*include\s*([<"])([^>"]+)[>"])");
    QList<Inclusion> inclusions;
    int numero = 0;
    for (const QString& ligne : Contenu(chemin).split(u'\n')) {
        ++numero;
        const auto trouve = forme.match(ligne);
        if (trouve.hasMatch())
            inclusions.append({numero, trouve.captured(1) == QStringLiteral("\""), trouve.captured(2)});
    }
    return inclusions;
}

/// What the build makes from a form or a header of the same folder.
bool EstEngendre(const QString& nom)
{
    static const QRegularExpression forme(R"(^(ui_[^/]+\.h|moc_[^/]+\.cpp|[^/]+\.moc)$)");
    return forme.match(nom).hasMatch();
}

/// The file that `nom` means in an include of `fichier`, relative to the root.
std::optional<QString> Cible(const ArbreDeSources& arbre, const QString& fichier, const QString& nom)
{
    const QDir racine(arbre.racine);
    const QString aCote = QDir::cleanPath(QFileInfo(fichier).path() + u'/' + nom);
    for (const QString& candidat : {aCote, QDir::cleanPath(nom)}) {
        if (!candidat.startsWith(QStringLiteral("..")) && QFileInfo(racine.filePath(candidat)).isFile())
            return candidat;
    }
    return std::nullopt;
}

QString PieceDe(const QString& fichier)
{
    return fichier.section(u'/', 0, -2);
}

std::optional<int> EtageDe(const ArbreDeSources& arbre, const QString& fichier)
{
    const auto etage = arbre.etages.find(PieceDe(fichier));
    return etage == arbre.etages.end() ? std::nullopt : std::optional(etage->second);
}

bool EstDansLaRacine(const QString& fichier)
{
    return !fichier.contains(u'/');
}

QString Endroit(const QString& fichier, int ligne)
{
    return QStringLiteral("%1:%2: ").arg(fichier).arg(ligne);
}

bool EstDeQt(const QString& nom)
{
    static const QRegularExpression forme(R"(^(Q[A-Z]|Qt[A-Z]|q[a-z_]+\.h$))");
    return forme.match(nom).hasMatch();
}

bool EstDeQtCore(const ArbreDeSources& arbre, const QString& nom)
{
    const QString sansModule = nom.startsWith(QStringLiteral("QtCore/")) ? nom.mid(7) : nom;
    return QFileInfo(QDir(arbre.enTetesQtCore).filePath(sansModule)).isFile();
}

} // namespace

Etages LireEtages(const QByteArray& liste)
{
    Etages etages;
    int etage = 0;
    for (const QString& ligne : QString::fromUtf8(liste).split(u'\n')) {
        const QStringList pieces = ligne.simplified().split(u' ', Qt::SkipEmptyParts);
        if (pieces.isEmpty() || ligne.startsWith(u'#'))
            continue;
        ++etage;
        for (const QString& piece : pieces)
            etages.emplace(piece, etage);
    }
    return etages;
}

QStringList FichiersDe(const ArbreDeSources& arbre)
{
    QStringList fichiers;
    QDirIterator parcours(arbre.racine, {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files,
                          QDirIterator::Subdirectories);
    while (parcours.hasNext())
        fichiers.append(QDir(arbre.racine).relativeFilePath(parcours.next()));
    fichiers.sort();
    return fichiers;
}

QStringList InclusionsMontantes(const ArbreDeSources& arbre)
{
    QStringList fautes;
    for (const QString& fichier : FichiersDe(arbre)) {
        // The lists of precompiled headers belong to no floor; they may hold headers of libraries alone.
        const std::optional<int> etage = EstDansLaRacine(fichier) ? 0 : EtageDe(arbre, fichier);
        if (!etage) {
            fautes.append(fichier + QStringLiteral(": its folder is no room"));
            continue;
        }
        for (const Inclusion& inclusion : InclusionsDe(QDir(arbre.racine).filePath(fichier))) {
            if (!inclusion.guillemets || EstEngendre(inclusion.nom))
                continue;
            const std::optional<QString> cible = Cible(arbre, fichier, inclusion.nom);
            if (!cible) {
                fautes.append(Endroit(fichier, inclusion.ligne) + inclusion.nom +
                              QStringLiteral(" is not in the tree"));
                continue;
            }
            const int sien = EtageDe(arbre, *cible).value_or(0);
            if (sien > *etage)
                fautes.append(Endroit(fichier, inclusion.ligne) + *cible + QStringLiteral(" is on a higher floor"));
            else if (sien == *etage && PieceDe(*cible) != PieceDe(fichier))
                fautes.append(Endroit(fichier, inclusion.ligne) + *cible +
                              QStringLiteral(" is in another room of the floor"));
        }
    }
    return fautes;
}

QStringList InclusionsHorsQtCore(const ArbreDeSources& arbre, const QStringList& fichiers)
{
    QStringList fautes;
    QStringList aLire = fichiers;
    QSet<QString> connus(fichiers.begin(), fichiers.end());
    while (!aLire.isEmpty()) {
        const QString fichier = aLire.takeFirst();
        for (const Inclusion& inclusion : InclusionsDe(QDir(arbre.racine).filePath(fichier))) {
            const std::optional<QString> cible =
                inclusion.guillemets ? Cible(arbre, fichier, inclusion.nom) : std::nullopt;
            if (cible && !connus.contains(*cible)) {
                connus.insert(*cible);
                aLire.append(*cible);
            }
            const bool formulaire = inclusion.nom.startsWith(QStringLiteral("ui_"));
            const bool etranger = EstDeQt(inclusion.nom) && !EstDeQtCore(arbre, inclusion.nom);
            if (!cible && (formulaire || etranger))
                fautes.append(Endroit(fichier, inclusion.ligne) + inclusion.nom + QStringLiteral(" is not Qt Core's"));
        }
    }
    fautes.sort();
    return fautes;
}

QStringList FichiersTropLongs(const ArbreDeSources& arbre, int lignes)
{
    QStringList fautes;
    for (const QString& fichier : FichiersDe(arbre)) {
        const qsizetype nombre = Contenu(QDir(arbre.racine).filePath(fichier)).count(u'\n');
        if (nombre > lignes)
            fautes.append(QStringLiteral("%1: %2 lines").arg(fichier).arg(nombre));
    }
    return fautes;
}
