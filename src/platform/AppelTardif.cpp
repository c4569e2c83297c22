#include "platform/AppelTardif.h"

#include <QMetaMethod>
#include <QMetaProperty>

#include <exception>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

bool Accepte(const QMetaMethod& methode, std::initializer_list<ArgumentTardif> arguments)
{
    if (methode.methodType() == QMetaMethod::Signal || methode.access() != QMetaMethod::Public ||
        methode.parameterCount() != static_cast<int>(arguments.size()))
        return false;
    int place = 0;
    for (const ArgumentTardif& argument : arguments) {
        QByteArray type = methode.parameterTypeName(place++);
        if (type.endsWith('&'))
            type.chop(1);
        if (QMetaType::fromName(type) != argument.type)
            return false;
    }
    return true;
}

int Chercher(const QMetaObject& classe, const char* nom, std::initializer_list<ArgumentTardif> arguments)
{
    for (int index = classe.methodCount() - 1; index >= 0; --index) {
        const QMetaMethod methode = classe.method(index);
        if (methode.name() == nom && Accepte(methode, arguments))
            return index;
    }
    return -1;
}

} // namespace

EchecTardif AppelerTardif(QObject& objet, const char* nom, std::initializer_list<ArgumentTardif> arguments)
{
    const int index = Chercher(*objet.metaObject(), nom, arguments);
    if (index < 0)
        return u"%1 ?"_s.arg(QLatin1StringView(nom));
    std::vector<void*> valeurs;
    valeurs.reserve(arguments.size() + 1);
    valeurs.push_back(nullptr); // no result is asked for
    for (const ArgumentTardif& argument : arguments)
        valeurs.push_back(argument.valeur);
    try {
        objet.qt_metacall(QMetaObject::InvokeMetaMethod, index, valeurs.data());
        return {};
    } catch (const std::exception& leve) {
        return u"%1 : %2"_s.arg(QLatin1StringView(nom), QString::fromUtf8(leve.what()));
    } catch (...) {
        return QString::fromLatin1(nom);
    }
}

std::optional<QString> LireTardif(const QObject& objet, const char* nom)
{
    const QMetaObject& classe = *objet.metaObject();
    const int index = classe.indexOfProperty(nom);
    if (index < 0)
        return std::nullopt;
    try {
        const QVariant valeur = classe.property(index).read(&objet);
        switch (valeur.typeId()) {
        case QMetaType::QString:
        case QMetaType::Short:
        case QMetaType::UShort:
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::Long:
        case QMetaType::ULong:
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
        case QMetaType::Float:
        case QMetaType::Double:
            return valeur.toString();
        default:
            return std::nullopt;
        }
    } catch (...) {
        return std::nullopt;
    }
}
