#include "reading/OpeningMessage.h"

using namespace Qt::StringLiterals;

QString openingMessage()
{
    return u"アプリ起動後に読み込んだ文章です。この枠内で読書が可能ですので読込ボタンを押して下さい。"
           "この文章は保存できませんので、コピー＆ペーストなどのEditメニューの機能を使って"
           "テキストエディット.appの文書に貼り込むなどして保存ください。簡易PDF出力（仮）が可能です。"_s;
}
