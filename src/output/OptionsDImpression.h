// The print options of a folder: its file "print.ini", and "print.image" beside it, the picture at the top of the first
// page. A document's folder goes into its file, and so do they.
//
// Each call reads or writes the file. What cannot be written stays as it was, and nobody is told: the pages come out as
// the user sees them all the same. Values that make no sense are read as what comes nearest.
#pragma once

#include <QString>

#include <vector>

class OptionsDImpression
{
public:
    /// `dossier`: with its trailing separator. "c:\" is the place that all comparisons share, the program's folder.
    explicit OptionsDImpression(const QString& dossier);

    QString FichierImage() const { return m_dossier + QStringLiteral("print.image"); }

    /// `AffImg` and `ImgDefaut` as they stand: 1 is a yes, and of both together 0 is a no.
    double AffImg() const;
    double ImgDefaut() const;
    void EcrireImage(bool affichee, bool parDefaut) const;

    QString Titre() const;
    QString Texte() const;
    /// Texts of one line. The code page's file has "?" for what that lacks, and the exact text in a key of its own.
    void EcrireTextes(const QString& titre, const QString& texte) const;

    bool SelectionSeule() const;
    void EcrireSelectionSeule(bool seule) const;

    /// Of the columns on the sheet, in its millimetres; `largeurs` where there is none. All at once: a category may
    /// have very many.
    std::vector<double> Largeurs(std::vector<double> largeurs) const;
    void EcrireLargeurs(const std::vector<double>& largeurs) const;

    /// The widest that a column is read.
    static constexpr double LargeurMax = 1000;
    /// The most characters of a text that are kept.
    static constexpr int LongueurDeTexte = 1000;

private:
    QString FichierIni() const { return m_dossier + QStringLiteral("print.ini"); }
    QString Lire(const QString& cle, const QString& defaut) const;
    QString LireTexte(const QString& cle, const QString& defaut) const;
    void Ecrire(const QString& cle, const QString& valeur) const;
    void EcrireTexte(const QString& cle, const QString& valeur) const;

    QString m_dossier;
};

/// The heading: `modele` with "%titre%", then "%nb%", then "%nomcat%" replaced wherever they stand, in any case. What
/// an earlier one put in is looked through for the later ones.
QString TexteDEntete(const QString& modele, const QString& titre, const QString& nombre, const QString& nomcat);
