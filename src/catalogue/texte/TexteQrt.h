// Writing the catalogue's text.
#pragma once

#include "catalogue/texte/PlumeOctets.h"
#include "catalogue/texte/QrtClass.h"

#include <QByteArrayView>
#include <QString>

#include <memory>
#include <optional>

/// Whose entries are written. A selection is numbered from 1 and has no image field.
enum class EntreesEcrites { Toutes, Selection };

class PlumeQrt;

/// Writes the text in steps, for whoever has to let events run in between. The document must not change meanwhile.
class RedacteurQrt
{
public:
    /// `version` is "2" or "1.4". `saisie`: is written in the place of what it touches, without what would break a
    /// line; with all entries only.
    RedacteurQrt(const QrtClass& doc, const char* version, EntreesEcrites entrees, stockage::Codage codage,
                 Puits& puits, std::optional<SaisieEnCours> saisie = std::nullopt);
    ~RedacteurQrt();
    RedacteurQrt(const RedacteurQrt&) = delete;
    RedacteurQrt& operator=(const RedacteurQrt&) = delete;

    /// Goes on with so many columns or entries. False when all are written or the sink refused.
    bool Avancer(int lignes);
    /// Ends the text; as EcrireTexteQrt.
    std::optional<qint64> Finir();

private:
    void CommencerEntree();
    bool EcrireColonnes(int lignes);

    const QrtClass& m_doc;
    EntreesEcrites m_entrees;
    std::optional<SaisieEnCours> m_saisie;
    std::unique_ptr<PlumeQrt> m_plume;
    int m_colonne = 1;
    bool m_colonnesEcrites = false;
    int m_suivante = 1;
    int m_numero = 0;
};

/// Writes all lines of the text, in Windows-1252 or in UTF-8, lines ended by CR LF. `version` is "2" or "1.4". Returns
/// how many characters the code page lacks ("?" stands for each of them); nothing when the sink refused.
std::optional<qint64> EcrireTexteQrt(const QrtClass& doc, const char* version, EntreesEcrites entrees,
                                     stockage::Codage codage, Puits& puits);

/// True when a title, a pre-recorded text, a value or an image name holds a character that Windows-1252 lacks.
bool TexteDepasseLaPage(const QrtClass& doc);
