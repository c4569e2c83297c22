#include "base/Options.h"

#include "base/Const_Vrac.h"

#include <algorithm>

using namespace Qt::StringLiterals;

std::vector<OptionNommee> ToutesLesOptions()
{
    const QString dossier = DossierProgramme();
    return {
        {u"AffImg"_s, u"0"_s},           // images panel shown when a document opens
        {u"ExportInitDir"_s, QString()}, // start folder of the export dialog
        {u"FRecent1"_s, QString()},      // recent files, newest first
        {u"FRecent2"_s, QString()},
        {u"FRecent3"_s, QString()},
        {u"FRecent4"_s, QString()},
        {u"FRecent5"_s, QString()},
        {u"FontBold"_s, u"0"_s}, // font of the table
        {u"FontItalic"_s, u"0"_s},
        {u"FontName"_s, u"MS Sans Serif"_s},
        {u"FontSize"_s, 8.25},
        {u"FontColor"_s, 0},
        {u"FusionnerCol"_s, u"_-_"_s},                        // last separator of a column merge
        {u"GrandesIcones"_s, u"0"_s},                         // tool bars with large icons
        {u"ImgInitDir"_s, dossier},                           // start folder of the image dialog
        {u"QRTLangue"_s, u"default"_s},                       // name of the language file
        {u"MessageEditMulti"_s, 1},                           // warn before editing many entries
        {u"MessageImprim"_s, 1},                              // print warning
        {u"OpenInitDir"_s, QString()},                        // start folder of the open dialog
        {u"OpenLastFile"_s, 0},                               // open FRecent1 at start
        {u"SauvegardeLBK"_s, 0},                              // make backups
        {u"SauvegardeLBK_1"_s, 0},                            // back up at every save
        {u"SaveInitDir"_s, QString()},                        // start folder of Save As
        {u"SeparerEn2"_s, u"_-_"_s},                          // last separator of a column split
        {u"ShowTipsAtStartup"_s, 0},                          // 1: no tips at start, the opposite of what the key says
        {u"SizeForm1"_s, 2},                                  // window state of documents: 2 maximised, 0 normal
        {u"SupprDependant"_s, 0},                             // state of ckDependant
        {u"TempFolder"_s, AjouterSlash(dossier) + u"temp"_s}, // base of the documents' temporary folders
        {u"VerrifAssociation"_s, 1},                          // rewrite the file association at start
        {u"VotreEmail"_s, QString()},                         // sender address
        {u"VotreSmtp"_s, QString()},                          // mail server name
        {u"commentAtStartup"_s, 1},                           // show comments when a document opens
        {u"showInfobulles"_s, 0},                             // enable the tool tips of the table
    };
}

QVariant LireOption(const QString& cle)
{
    const std::vector<OptionNommee> options = ToutesLesOptions();
    const auto trouvee = std::find_if(options.begin(), options.end(), [&](const OptionNommee& option) {
        return option.cle.compare(cle, Qt::CaseInsensitive) == 0;
    });
    return LireOption(cle, trouvee == options.end() ? QVariant(QString()) : trouvee->defaut);
}
