// Taking a command line apart: options stand before, between or behind the arguments, and "--" ends them.
#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

/// An option that a command knows. Written "--nom", "--nom VALEUR" or "--nom=VALEUR".
struct OptionConnue
{
    QString nom;                ///< without the dashes
    QString valeur;             ///< what the help calls the value; empty for an option without one
    QString explication;        ///< for the help
    QStringList possibles = {}; ///< the values there are; any when empty
};

struct LigneDeCommande
{
    QStringList arguments;
    QHash<QString, QString> options;

    bool A(const QString& option) const { return options.contains(option); }
    QString Valeur(const QString& option, const QString& defaut = QString()) const
    {
        return options.value(option, defaut);
    }
};

/// Either the line, or what is wrong with it.
struct LigneAnalysee
{
    std::optional<LigneDeCommande> ligne;
    QString erreur;
};

/// Place of the first argument among the words: where the first one stands that is neither an option nor the value of
/// one; -1 when there is none.
qsizetype PremierArgument(const QStringList& mots, const QList<OptionConnue>& options);

/// Takes apart what follows the command's name. An unknown option, a missing, superfluous or impossible value, an
/// option given twice, or a number of arguments other than `arguments` is an error. "--help" is always known and makes
/// the number of arguments free.
LigneAnalysee Analyser(const QStringList& mots, const QList<OptionConnue>& options, int arguments);
