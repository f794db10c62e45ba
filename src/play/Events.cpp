#include "play/Events.h"

#include "preferences/PreferenceKeys.h"
#include "preferences/UserDefaults.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {
struct Titles {
    Q_DECLARE_TR_FUNCTIONS(Events)
};
} // namespace

const std::array<Event, 6> &events()
{
    static const std::array<Event, 6> all{{
        {Titles::tr("🐱Cat"), Key::CatPX5, qint64(3), 3, u"🐱Cat に餌をやりました"_s},
        {Titles::tr("🐦Bird"), Key::BirdPX5, qint64(3), 3, u"🐦Bird に餌をやりました"_s},
        {Titles::tr("居場所"), Key::CarPX5, u"🚙"_s, {}, u"居場所に戻りました"_s},
        {Titles::tr("手荷物"), Key::BagPX5, u"🛍"_s, {}, u"🐱🐦手荷物を確認しました"_s},
        {Titles::tr("暗黙知"),
         Key::FirmPX5,
         u"種子"_s,
         {},
         u"🐱🐦暗黙知というタネを撒いて収穫物を確認しました"_s},
        {Titles::tr("寄付"),
         Key::FirmPX5,
         u"種子"_s,
         {},
         u"🐱🐦寄付という税のような物を収穫物の中から支払いました"_s},
    }};
    return all;
}

void perform(const Event &event, UserDefaults &store, State<qint64> &btnStatus,
             State<QString> &alertMessage, State<bool> &showAlert)
{
    if (event.stage)
        btnStatus = *event.stage;
    if (const auto *number = std::get_if<qint64>(&event.fact))
        store.setInteger(*number, event.key);
    else
        store.setString(std::get<QString>(event.fact), event.key);
    alertMessage = event.message;
    showAlert = true;
}
