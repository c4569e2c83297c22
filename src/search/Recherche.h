// The search for a text among the entries of a category. It goes through the text that was saved last, in the
// document's folder, and not through the table; a result is tied to its entry by nothing but the place of its line.
#pragma once

#include "catalogue/table/MyLVStockage.h"
#include "search/Aiguille.h"
#include "search/TexteSauve.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

/// Which columns are searched.
struct PorteeDeRecherche
{
    /// The line is searched as a whole, with its "|" and the image's name: so a text is found also across two fields.
    bool ToutesColonnes = true;
    /// Else only these fields are, each by itself. From 0.
    std::vector<bool> choisies;

    /// One element a column. All of them are the whole line.
    static PorteeDeRecherche DeChoix(std::vector<bool> choix);
};

enum class IssueDeRecherche {
    Trouve,
    Rien,
    SansTexte, ///< there is no text to find: nothing was read
    Absent,    ///< the saved text is not in its folder
    Illisible, ///< it cannot be read
};

class Recherche
{
public:
    /// `dossier` is the document's, with a trailing separator, and `colonnes` its number of columns.
    Recherche(const QString& dossier, int colonnes, const QString& texte, PorteeDeRecherche ou);
    Recherche(const Recherche&) = delete;
    Recherche& operator=(const Recherche&) = delete;

    /// Goes on with about so many bytes; a line is never cut. False when nothing is left to read.
    bool Avancer(qsizetype octets);
    /// How much of the text was read.
    int Pourcent() const;

    int Nombre() const { return static_cast<int>(m_lignes.debuts.size()); }
    /// Once Avancer was false.
    IssueDeRecherche Issue() const;

    struct Trouvees
    {
        stockage::Source source; ///< the lines that were found, one behind the other, and no others
        stockage::Lignes lignes; ///< the key of each is the rank of its line among those of the entries
    };
    /// Gives away what was found, in the order of the lines. Once.
    Trouvees Prendre();

private:
    void AllerAuxEntrees();
    bool LireLigne();
    void ExaminerBloc(const char* fin);
    bool Convient(QByteArrayView valeur);
    void Retenir(QByteArrayView valeur);

    QString m_dossier;
    int m_colonnes;
    PorteeDeRecherche m_ou;
    bool m_sansTexte;
    TexteSauve m_texte;
    Aiguille m_aiguille;
    const char* m_suite;
    const char* m_fin;
    uint32_t m_rang = 0; ///< of the line read last
    QByteArray m_replie;
    stockage::Lignes m_lignes; ///< where they lie in m_texte
};
