// The named settings: every key of the section "Options" with its type and the value that stands in for it until it is
// written. Whoever shows a setting, or keeps what it read, follows it: nobody else has to know.
#pragma once

#include <QString>
#include <QStringView>

#include <array>
#include <functional>
#include <optional>

class QObject;

/// What makes a setting a yes. Files hold more than 1 and 0; which rule a key has is meant.
enum class Oui {
    SiUn,          ///< the number 1 alone
    SaufZero,      ///< anything but the number 0; a text that is no number is a yes
    SaufTexteZero, ///< anything but the text "0": "0,0" and the empty text are a yes
};

struct Option
{
    QStringView cle; ///< the same in any case
};
struct OptionTexte : Option
{
    QStringView defaut;
};
struct OptionDossier : Option
{
    QString (*defaut)(); ///< names the program's folder, which is another one in every installation
};
struct OptionNombre : Option
{
    double defaut;
};
struct OptionOuiNon : Option
{
    bool defaut;
    Oui regle;
};

QString DossierParDefautDesImages();
QString DossierTempParDefaut();

namespace Options {

/// Images panel shown when a document opens.
inline constexpr OptionOuiNon AffImg{{u"AffImg"}, false, Oui::SaufTexteZero};
/// Start folder of the export dialog.
inline constexpr OptionTexte ExportInitDir{{u"ExportInitDir"}, u""};
/// Recent files, newest first.
inline constexpr std::array<OptionTexte, 5> FRecent{
    {{{u"FRecent1"}, u""}, {{u"FRecent2"}, u""}, {{u"FRecent3"}, u""}, {{u"FRecent4"}, u""}, {{u"FRecent5"}, u""}}};
/// Font of the table.
inline constexpr OptionOuiNon FontBold{{u"FontBold"}, false, Oui::SaufTexteZero};
inline constexpr OptionOuiNon FontItalic{{u"FontItalic"}, false, Oui::SaufTexteZero};
inline constexpr OptionTexte FontName{{u"FontName"}, u"MS Sans Serif"};
inline constexpr OptionNombre FontSize{{u"FontSize"}, 8.25};
inline constexpr OptionNombre FontColor{{u"FontColor"}, 0};
/// Last separator of a column merge.
inline constexpr OptionTexte FusionnerCol{{u"FusionnerCol"}, u"_-_"};
/// Tool bars with large icons.
inline constexpr OptionOuiNon GrandesIcones{{u"GrandesIcones"}, false, Oui::SaufTexteZero};
/// Start folder of the image dialog.
inline constexpr OptionDossier ImgInitDir{{u"ImgInitDir"}, DossierParDefautDesImages};
/// Size, place and state of windows when they were closed last (GarderLaPlace).
inline constexpr OptionTexte PlaceDuCadre{{u"PlaceDuCadre"}, u""};
inline constexpr OptionTexte PlaceDeLEditeur{{u"PlaceDeLEditeur"}, u""};
inline constexpr OptionTexte PlaceDeLaRecherche{{u"PlaceDeLaRecherche"}, u""};
/// Name of the language file.
inline constexpr OptionTexte QRTLangue{{u"QRTLangue"}, u"default"};
/// Warn before editing many entries.
inline constexpr OptionOuiNon MessageEditMulti{{u"MessageEditMulti"}, true, Oui::SiUn};
/// Print warning.
inline constexpr OptionOuiNon MessageImprim{{u"MessageImprim"}, true, Oui::SiUn};
/// Start folder of the open dialog.
inline constexpr OptionTexte OpenInitDir{{u"OpenInitDir"}, u""};
/// Open FRecent1 at start.
inline constexpr OptionOuiNon OpenLastFile{{u"OpenLastFile"}, false, Oui::SaufZero};
/// Make backups.
inline constexpr OptionOuiNon SauvegardeLBK{{u"SauvegardeLBK"}, false, Oui::SiUn};
/// Back up at every save.
inline constexpr OptionOuiNon SauvegardeLBK_1{{u"SauvegardeLBK_1"}, false, Oui::SaufZero};
/// Start folder of Save As.
inline constexpr OptionTexte SaveInitDir{{u"SaveInitDir"}, u""};
/// Last separator of a column split.
inline constexpr OptionTexte SeparerEn2{{u"SeparerEn2"}, u"_-_"};
/// A yes keeps the tips away at start, the opposite of what the key says.
inline constexpr OptionOuiNon ShowTipsAtStartup{{u"ShowTipsAtStartup"}, false, Oui::SiUn};
/// Window state of documents: 2 maximised, 0 normal.
inline constexpr OptionNombre SizeForm1{{u"SizeForm1"}, 2};
/// State of ckDependant.
inline constexpr OptionOuiNon SupprDependant{{u"SupprDependant"}, false, Oui::SiUn};
/// Base of documents' folders.
inline constexpr OptionDossier TempFolder{{u"TempFolder"}, DossierTempParDefaut};
/// Where earlier runs had their TempFolder: what they left is looked for there too.
inline constexpr OptionTexte LieuxTemporaires{{u"LieuxTemporaires"}, u""};
/// Associate files at start.
inline constexpr OptionOuiNon VerrifAssociation{{u"VerrifAssociation"}, true, Oui::SiUn};
/// Sender address.
inline constexpr OptionTexte VotreEmail{{u"VotreEmail"}, u""};
/// Mail server name.
inline constexpr OptionTexte VotreSmtp{{u"VotreSmtp"}, u""};
/// Show comments when a document opens. The settings dialog reads a key that was never written as a no.
inline constexpr OptionOuiNon commentAtStartup{{u"commentAtStartup"}, true, Oui::SiUn};
/// Enable the tool tips of the table.
inline constexpr OptionOuiNon showInfobulles{{u"showInfobulles"}, false, Oui::SiUn};

} // namespace Options

QString LireOption(const OptionTexte& option);
QString LireOption(const OptionDossier& option);
/// Nothing where what is stored is no number: it equals none.
std::optional<double> LireOption(const OptionNombre& option);
bool LireOption(const OptionOuiNon& option);
/// For a caller that has a default of its own.
bool LireOption(const OptionOuiNon& option, bool defaut);

void EcrireOption(const OptionTexte& option, const QString& valeur);
void EcrireOption(const OptionDossier& option, const QString& valeur);
void EcrireOption(const OptionNombre& option, double valeur);
void EcrireOption(const OptionOuiNon& option, bool valeur);

/// Calls `agir` after each write that changes what is stored under the key, by whichever EcrireOption, for as long as
/// `contexte` lives. What another process or an editor writes into the file is not noticed.
void SuivreOption(const Option& option, const QObject& contexte, std::function<void()> agir);
/// Tells those who follow the key `cle`. EcrireOption does.
void DireOptionChangee(QStringView cle);
