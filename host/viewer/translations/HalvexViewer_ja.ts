<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>Host::CAravisCamera</name>
    <message>
        <source>camera &apos;%1&apos;: another program is using it (%2)</source>
        <translation>カメラ「%1」: ほかのプログラムが使用しています (%2)</translation>
    </message>
    <message>
        <source>camera &apos;%1&apos;: %2</source>
        <translation>カメラ「%1」: %2</translation>
    </message>
    <message>
        <source>cannot read camera &apos;%1&apos;: %2</source>
        <translation>カメラ「%1」を読み取れません: %2</translation>
    </message>
    <message>
        <source>camera &apos;%1&apos; does not start: %2</source>
        <translation>カメラ「%1」を開始できません: %2</translation>
    </message>
    <message>
        <source>camera &apos;%1&apos; gives no stream: %2</source>
        <translation>カメラ「%1」からストリームを得られません: %2</translation>
    </message>
    <message>
        <source>camera &apos;%1&apos; has gone: it no longer answers</source>
        <translation>カメラ「%1」が切断されました: 応答しません</translation>
    </message>
</context>
<context>
    <name>Host::CCameraList</name>
    <message>
        <source>Simulated camera</source>
        <translation>シミュレーションカメラ</translation>
    </message>
    <message>
        <source>Free</source>
        <translation>未使用</translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation>接続中</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>接続済み</translation>
    </message>
    <message>
        <source>Streaming</source>
        <translation>取り込み中</translation>
    </message>
    <message>
        <source>Gone, waiting for it</source>
        <translation>応答なし、復帰を待っています</translation>
    </message>
    <message>
        <source>In use by another program</source>
        <translation>ほかのプログラムが使用中</translation>
    </message>
    <message>
        <source>Cannot be opened</source>
        <translation>開けません</translation>
    </message>
    <message>
        <source>%1 frames/s · %2 frames</source>
        <translation>%1 フレーム/秒 · %2 フレーム</translation>
    </message>
</context>
<context>
    <name>Host::CCameraPanel</name>
    <message>
        <source>Folder with images</source>
        <translation>画像のフォルダー</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>動画</translation>
    </message>
    <message>
        <source>Videos (*.avi *.mkv *.mp4 *.mov);;All files (*)</source>
        <translation>動画 (*.avi *.mkv *.mp4 *.mov);;すべてのファイル (*)</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>接続</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>開始</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Single frame</source>
        <translation>1 フレーム</translation>
    </message>
    <message>
        <source>Trigger</source>
        <translation>トリガー</translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation>切断</translation>
    </message>
    <message>
        <source>Open images as a camera…</source>
        <translation>画像をカメラとして開く…</translation>
    </message>
    <message>
        <source>Open a video as a camera…</source>
        <translation>動画をカメラとして開く…</translation>
    </message>
    <message>
        <source>Cameras</source>
        <translation>カメラ</translation>
    </message>
    <message>
        <source>Message of the camera</source>
        <translation>カメラからのメッセージ</translation>
    </message>
</context>
<context>
    <name>Host::CCameraSession</name>
    <message>
        <source>The graph has no place for this camera: its node was removed.</source>
        <translation>グラフにこのカメラの場所がありません。ノードが削除されました。</translation>
    </message>
    <message>
        <source>Images of the format %1 cannot be shown.</source>
        <translation>%1 形式の画像は表示できません。</translation>
    </message>
</context>
<context>
    <name>Host::CChainReader</name>
    <message>
        <source>no element has a camera as its source</source>
        <translation>カメラをソースとする要素がありません</translation>
    </message>
    <message>
        <source>the camera %1</source>
        <translation>カメラ %1</translation>
    </message>
    <message>
        <source>a %1 of its own; frames come from the cameras of the run, named in %2</source>
        <translation>チェーン独自の %1 は使えません。フレームは %2 で指定した実行時のカメラから届きます</translation>
    </message>
    <message>
        <source>%1 stands for any camera</source>
        <translation>%1 は任意のカメラを表します</translation>
    </message>
    <message>
        <source>%1 is the name of a camera</source>
        <translation>%1 はカメラの名前です</translation>
    </message>
    <message>
        <source>a second element %1, after that at %2</source>
        <translation>要素 %1 が %2 に続いて 2 つあります</translation>
    </message>
    <message>
        <source>no element is named %1, so that it is taken for a camera</source>
        <translation>%1 という名前の要素がないため、カメラとみなします</translation>
    </message>
    <message>
        <source>too many names are unknown to say whether a label was meant</source>
        <translation>不明な名前が多すぎるため、ラベルの誤りかどうか判断できません</translation>
    </message>
    <message>
        <source>no element is named %1</source>
        <translation>%1 という名前の要素はありません</translation>
    </message>
    <message>
        <source>no camera of the run and no element is named %1</source>
        <translation>%1 という名前のカメラも要素もこの実行にはありません</translation>
    </message>
</context>
<context>
    <name>Host::CCommandPalette</name>
    <message>
        <source>Commands</source>
        <translation>コマンド</translation>
    </message>
    <message>
        <source>What do you want to do?</source>
        <translation>何をしますか?</translation>
    </message>
    <message>
        <source>Search commands</source>
        <translation>コマンドを検索</translation>
    </message>
</context>
<context>
    <name>Host::CConnectionItem</name>
    <message>
        <source>%1 fps</source>
        <translation>%1 fps</translation>
    </message>
</context>
<context>
    <name>Host::CDocumentCheck</name>
    <message>
        <source>%1, where an array (a chain) or an object (a scene) belongs</source>
        <translation>配列 (チェーン) またはオブジェクト (シーン) が必要な箇所に %1 があります</translation>
    </message>
</context>
<context>
    <name>Host::CFaultList</name>
    <message>
        <source>there are more faults than these %1</source>
        <translation>問題はこの %1 件のほかにもあります</translation>
    </message>
</context>
<context>
    <name>Host::CFaultModel</name>
    <message>
        <source>Error</source>
        <translation>エラー</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>種類</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>場所</translation>
    </message>
    <message>
        <source>What is wrong</source>
        <translation>内容</translation>
    </message>
</context>
<context>
    <name>Host::CFaultPanel</name>
    <message>
        <source>line %1, column %2</source>
        <translation>%1 行 %2 列</translation>
    </message>
    <message>
        <source>scene</source>
        <translation>シーン</translation>
    </message>
    <message>
        <source>Check</source>
        <translation>検査</translation>
    </message>
    <message>
        <source>What the check found</source>
        <translation>検査の結果</translation>
    </message>
    <message>
        <source>The text that was checked</source>
        <translation>検査したテキスト</translation>
    </message>
    <message>
        <source>Nothing has been checked yet.</source>
        <translation>まだ何も検査していません。</translation>
    </message>
    <message>
        <source>No faults were found.</source>
        <translation>問題は見つかりませんでした。</translation>
    </message>
    <message>
        <source>Errors: %1, warnings: %2</source>
        <translation>エラー: %1、警告: %2</translation>
    </message>
</context>
<context>
    <name>Host::CFeatureEditor</name>
    <message>
        <source>Run</source>
        <translation>実行</translation>
    </message>
    <message>
        <source>Cannot be changed now</source>
        <translation>今は変更できません</translation>
    </message>
</context>
<context>
    <name>Host::CFeaturePanel</name>
    <message>
        <source>Connect a camera to see its features.</source>
        <translation>カメラを接続すると機能が表示されます。</translation>
    </message>
    <message>
        <source>Files have no features.</source>
        <translation>ファイルには機能がありません。</translation>
    </message>
    <message>
        <source>Read features again</source>
        <translation>機能を再読み込み</translation>
    </message>
    <message>
        <source>Search features</source>
        <translation>機能を検索</translation>
    </message>
    <message>
        <source>Features of the camera</source>
        <translation>カメラの機能</translation>
    </message>
    <message>
        <source>Message of the camera</source>
        <translation>カメラからのメッセージ</translation>
    </message>
</context>
<context>
    <name>Host::CFeatures</name>
    <message>
        <source>%1 to %2 in steps of %3</source>
        <translation>%1～%2、%3 刻み</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1～%2</translation>
    </message>
    <message>
        <source>boolean, true, false</source>
        <translation>真偽値、true、false</translation>
    </message>
    <message>
        <source>integer</source>
        <translation>整数</translation>
    </message>
    <message>
        <source>integer, %1</source>
        <translation>整数、%1</translation>
    </message>
    <message>
        <source>float</source>
        <translation>浮動小数点数</translation>
    </message>
    <message>
        <source>float, %1</source>
        <translation>浮動小数点数、%1</translation>
    </message>
    <message>
        <source>the feature &apos;%1&apos; takes one of %2, not %3</source>
        <translation>機能「%1」の値は %2 のいずれかで、%3 は使えません</translation>
    </message>
    <message>
        <source>the feature &apos;%1&apos; takes %2, not %3</source>
        <translation>機能「%1」の値は%2で、%3 は使えません</translation>
    </message>
    <message>
        <source>In no category</source>
        <translation>分類なし</translation>
    </message>
    <message>
        <source>it has no feature %1</source>
        <translation>機能 %1 はありません</translation>
    </message>
    <message>
        <source>the feature &apos;%1&apos; cannot be written now</source>
        <translation>機能「%1」は今は変更できません</translation>
    </message>
    <message>
        <source>the feature &apos;%1&apos; is read only</source>
        <translation>機能「%1」は読み取り専用です</translation>
    </message>
    <message>
        <source>the feature &apos;%1&apos; refuses %2: %3</source>
        <translation>機能「%1」に %2 を設定できません: %3</translation>
    </message>
</context>
<context>
    <name>Host::CFileSource</name>
    <message>
        <source>cannot read %1: its pixels are %2; it takes 8 or 16 bits, grey or colour</source>
        <translation>%1 を読み取れません: 画素は %2 です。8 または 16 ビットのグレーかカラーが必要です</translation>
    </message>
</context>
<context>
    <name>Host::CFileWriter</name>
    <message>
        <source>cannot write &apos;%1&apos;: %2</source>
        <translation>「%1」に書き込めません: %2</translation>
    </message>
</context>
<context>
    <name>Host::CFrameTable</name>
    <message>
        <source>cannot write &apos;%1&apos;: %2</source>
        <translation>「%1」に書き込めません: %2</translation>
    </message>
</context>
<context>
    <name>Host::CGLibError</name>
    <message>
        <source>no answer</source>
        <translation>応答がありません</translation>
    </message>
</context>
<context>
    <name>Host::CGraphActions</name>
    <message>
        <source>Undo %1</source>
        <translation>元に戻す: %1</translation>
    </message>
    <message>
        <source>Redo %1</source>
        <translation>やり直す: %1</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>切り取り</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>貼り付け</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>複製</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Select all nodes</source>
        <translation>すべてのノードを選択</translation>
    </message>
    <message>
        <source>Connect…</source>
        <translation>接続…</translation>
    </message>
    <message>
        <source>Choose the next connection</source>
        <translation>次の接続を選択</translation>
    </message>
    <message>
        <source>Arrange</source>
        <translation>整列</translation>
    </message>
    <message>
        <source>Find a node…</source>
        <translation>ノードを検索…</translation>
    </message>
    <message>
        <source>Show all</source>
        <translation>全体を表示</translation>
    </message>
    <message>
        <source>Actual size</source>
        <translation>実際のサイズ</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>拡大</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>縮小</translation>
    </message>
    <message>
        <source>Overview</source>
        <translation>概観</translation>
    </message>
</context>
<context>
    <name>Host::CGraphCheck</name>
    <message>
        <source>%1 has no output port %2; it has none</source>
        <translation>%1 に出力ポート %2 はありません。出力ポートを持ちません</translation>
    </message>
    <message>
        <source>%1 has no output port %2; its only output port is 0</source>
        <translation>%1 に出力ポート %2 はありません。出力ポートは 0 だけです</translation>
    </message>
    <message>
        <source>%1 has no output port %2; its output ports are 0 to %3</source>
        <translation>%1 に出力ポート %2 はありません。出力ポートは 0～%3 です</translation>
    </message>
    <message>
        <source>%1 has no input port %2; it has none</source>
        <translation>%1 に入力ポート %2 はありません。入力ポートを持ちません</translation>
    </message>
    <message>
        <source>%1 has no input port %2; its only input port is 0</source>
        <translation>%1 に入力ポート %2 はありません。入力ポートは 0 だけです</translation>
    </message>
    <message>
        <source>%1 has no input port %2; its input ports are 0 to %3</source>
        <translation>%1 に入力ポート %2 はありません。入力ポートは 0～%3 です</translation>
    </message>
    <message>
        <source>no source reaches %1</source>
        <translation>%1 にはどのソースからもデータが届きません</translation>
    </message>
    <message>
        <source>no source reaches %1, and so not what lies behind it (1 node)</source>
        <translation>%1 にはどのソースからもデータが届かず、その先 (1 個のノード) にも届きません</translation>
    </message>
    <message>
        <source>no source reaches %1, and so not what lies behind it (%2 nodes)</source>
        <translation>%1 にはどのソースからもデータが届かず、その先 (%2 個のノード) にも届きません</translation>
    </message>
    <message>
        <source>%1 feeds %2 already, at %3: all data would come twice</source>
        <translation>%1 は %3 ですでに %2 に接続されています。すべてのデータが 2 回届きます</translation>
    </message>
    <message>
        <source>%1 gives %2, and %3 takes %4</source>
        <translation>%1 は %2 を出力しますが、%3 の入力は %4 です</translation>
    </message>
    <message>
        <source>a converter from %1 to %2, where %3 gives %4, and %5 takes %6</source>
        <translation>コンバーターは %1 から %2 への変換ですが、%3 は %4 を出力し、%5 の入力は %6 です</translation>
    </message>
    <message>
        <source>a converter from %1 to %2 is not registered</source>
        <translation>%1 から %2 へのコンバーターは登録されていません</translation>
    </message>
    <message>
        <source>the connection lacks its &apos;converter&apos;, which is registered</source>
        <translation>接続に &apos;converter&apos; がありません。コンバーターは登録されています</translation>
    </message>
    <message>
        <source>put a %1 between</source>
        <translation>間に %1 を入れてください</translation>
    </message>
    <message>
        <source>no model makes the one of the other</source>
        <translation>一方から他方を作るモデルはありません</translation>
    </message>
    <message>
        <source>%1 more</source>
        <comment>nodes</comment>
        <translation>ほか %1 個</translation>
    </message>
    <message>
        <source>a loop, with no decoupler in it: %1</source>
        <translation>デカップラーのないループです: %1</translation>
    </message>
    <message>
        <source>nothing is wired to %1</source>
        <translation>%1 には何も接続されていません</translation>
    </message>
    <message>
        <source>nothing feeds input port %1 of %2</source>
        <translation>%2 の入力ポート %1 には何も接続されていません</translation>
    </message>
</context>
<context>
    <name>Host::CGraphEditor</name>
    <message>
        <source>&apos;%1&apos; was removed at once</source>
        <translation>「%1」はすぐに削除されました</translation>
    </message>
    <message>
        <source>&apos;%1&apos; cannot be added: %2</source>
        <translation>「%1」を追加できません: %2</translation>
    </message>
    <message>
        <source>Add &apos;%1&apos;</source>
        <translation>「%1」を追加</translation>
    </message>
    <message>
        <source>&apos;%1&apos; stays: it is what the scene was made for</source>
        <translation>「%1」は残ります。シーンはこれのために作られました</translation>
    </message>
    <message>
        <source>These ports do not fit</source>
        <translation>これらのポートは接続できません</translation>
    </message>
    <message>
        <source>The connection</source>
        <translation>接続</translation>
    </message>
    <message>
        <source>The connection was removed at once</source>
        <translation>接続はすぐに削除されました</translation>
    </message>
    <message>
        <source>Connect &apos;%1&apos; to &apos;%2&apos;</source>
        <translation>「%1」を「%2」に接続</translation>
    </message>
    <message>
        <source>Set %1 of &apos;%2&apos; to %3</source>
        <translation>「%2」の %1 を %3 に設定</translation>
    </message>
    <message numerus="yes">
        <source>Move %n nodes</source>
        <translation>
            <numerusform>%n 個のノードを移動</numerusform>
        </translation>
    </message>
    <message>
        <source>Move &apos;%1&apos;</source>
        <translation>「%1」を移動</translation>
    </message>
    <message>
        <source>The scene is gone</source>
        <translation>シーンはもうありません</translation>
    </message>
    <message numerus="yes">
        <source>Not everything could be brought back: %n parts are missing</source>
        <translation>
            <numerusform>すべては元に戻せませんでした: %n 個が欠けています</numerusform>
        </translation>
    </message>
    <message>
        <source>The node of this step is gone</source>
        <translation>この操作のノードはもうありません</translation>
    </message>
    <message>
        <source>Delete a connection</source>
        <translation>接続を削除</translation>
    </message>
    <message numerus="yes">
        <source>Delete %n connections</source>
        <translation>
            <numerusform>%n 件の接続を削除</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete &apos;%1&apos;</source>
        <translation>「%1」を削除</translation>
    </message>
    <message numerus="yes">
        <source>Delete %n nodes</source>
        <translation>
            <numerusform>%n 個のノードを削除</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 with a connection</source>
        <translation>%1 (接続 1 件)</translation>
    </message>
    <message numerus="yes">
        <source>%1 with %n connections</source>
        <translation>
            <numerusform>%1 (接続 %n 件)</numerusform>
        </translation>
    </message>
    <message>
        <source>There is nothing that can be there twice</source>
        <translation>複製できるものがありません</translation>
    </message>
    <message numerus="yes">
        <source>Duplicate %n nodes</source>
        <translation>
            <numerusform>%n 個のノードを複製</numerusform>
        </translation>
    </message>
    <message>
        <source>Duplicate &apos;%1&apos;</source>
        <translation>「%1」を複製</translation>
    </message>
    <message>
        <source>There are no nodes in the text</source>
        <translation>テキストにノードがありません</translation>
    </message>
    <message numerus="yes">
        <source>Paste %n nodes</source>
        <translation>
            <numerusform>%n 個のノードを貼り付け</numerusform>
        </translation>
    </message>
    <message>
        <source>Paste a node</source>
        <translation>ノードを貼り付け</translation>
    </message>
    <message>
        <source>Only a scene of the service takes chains</source>
        <translation>チェーンを受け取れるのはサービスのシーンだけです</translation>
    </message>
    <message>
        <source>The chain names a model that there is not</source>
        <translation>チェーンが存在しないモデルを指定しています</translation>
    </message>
    <message>
        <source>There is no chain in the text</source>
        <translation>テキストにチェーンがありません</translation>
    </message>
    <message numerus="yes">
        <source>Import %n nodes</source>
        <translation>
            <numerusform>%n 個のノードをインポート</numerusform>
        </translation>
    </message>
    <message>
        <source>Import a node</source>
        <translation>ノードをインポート</translation>
    </message>
</context>
<context>
    <name>Host::CGraphOverview</name>
    <message>
        <source>Overview of the graph</source>
        <translation>グラフの概観</translation>
    </message>
    <message>
        <source>Click to go there</source>
        <translation>クリックして移動</translation>
    </message>
</context>
<context>
    <name>Host::CGraphSearch</name>
    <message>
        <source>none</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>%1 / %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>Find a node</source>
        <translation>ノードを検索</translation>
    </message>
</context>
<context>
    <name>Host::CGraphView</name>
    <message>
        <source>Graph</source>
        <translation>グラフ</translation>
    </message>
</context>
<context>
    <name>Host::CHistogramView</name>
    <message>
        <source>Histogram</source>
        <translation>ヒストグラム</translation>
    </message>
    <message>
        <source>How often each value occurs in what is seen, or in the rectangle. The lines stand at the values that are shown as black and as white.</source>
        <translation>表示範囲または矩形の中で各値が現れる回数。線は黒と白として表示される値を示します。</translation>
    </message>
</context>
<context>
    <name>Host::CImageActions</name>
    <message>
        <source>Fit</source>
        <translation>全体</translation>
    </message>
    <message>
        <source>Show all of the image</source>
        <translation>画像全体を表示</translation>
    </message>
    <message>
        <source>1:1</source>
        <translation>1:1</translation>
    </message>
    <message>
        <source>Show each pixel as one pixel of the screen</source>
        <translation>画像の 1 ピクセルを画面の 1 ピクセルで表示</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>拡大</translation>
    </message>
    <message>
        <source>Show the image larger</source>
        <translation>画像を大きく表示</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>縮小</translation>
    </message>
    <message>
        <source>Show the image smaller</source>
        <translation>画像を小さく表示</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>矩形</translation>
    </message>
    <message>
        <source>Draw a rectangle to measure in</source>
        <translation>測定する矩形を描く</translation>
    </message>
    <message>
        <source>Plain</source>
        <translation>そのまま</translation>
    </message>
    <message>
        <source>Show the image as it is</source>
        <translation>画像をそのまま表示</translation>
    </message>
    <message>
        <source>Heat</source>
        <translation>熱</translation>
    </message>
    <message>
        <source>Show dark as black and purple, bright as yellow</source>
        <translation>暗い値を黒と紫、明るい値を黄で表示</translation>
    </message>
    <message>
        <source>Spectrum</source>
        <translation>スペクトル</translation>
    </message>
    <message>
        <source>Show dark as blue, bright as red</source>
        <translation>暗い値を青、明るい値を赤で表示</translation>
    </message>
    <message>
        <source>Limits</source>
        <translation>上下限</translation>
    </message>
    <message>
        <source>Show black as blue and white as red</source>
        <translation>黒を青、白を赤で表示</translation>
    </message>
    <message>
        <source>Full range</source>
        <translation>全範囲</translation>
    </message>
    <message>
        <source>Show all values that the camera has</source>
        <translation>カメラの全ての値を表示</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>自動</translation>
    </message>
    <message>
        <source>Show the values that occur, from black to white</source>
        <translation>現れる値を黒から白で表示</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>手動</translation>
    </message>
    <message>
        <source>Choose which values are black and white</source>
        <translation>黒と白にする値を選ぶ</translation>
    </message>
    <message>
        <source>Histogram</source>
        <translation>ヒストグラム</translation>
    </message>
    <message>
        <source>Show how often each value occurs</source>
        <translation>各値が現れる回数を表示</translation>
    </message>
    <message>
        <source>Logarithmic histogram</source>
        <translation>対数ヒストグラム</translation>
    </message>
    <message>
        <source>Show rare values of the histogram, too</source>
        <translation>ヒストグラムのまれな値も表示</translation>
    </message>
    <message>
        <source>Save image…</source>
        <translation>画像を保存…</translation>
    </message>
    <message>
        <source>Save the image in the camera&apos;s full depth</source>
        <translation>画像をカメラの全ビット深度で保存</translation>
    </message>
    <message>
        <source>Save view…</source>
        <translation>表示を保存…</translation>
    </message>
    <message>
        <source>Save what is seen</source>
        <translation>表示されているものを保存</translation>
    </message>
    <message>
        <source>Copy view</source>
        <translation>表示をコピー</translation>
    </message>
    <message>
        <source>Copy what is seen</source>
        <translation>表示されているものをコピー</translation>
    </message>
    <message>
        <source>Record PNG files</source>
        <translation>PNG ファイルに記録</translation>
    </message>
    <message>
        <source>Write each image into a PNG file</source>
        <translation>画像をそれぞれ PNG ファイルに書き込む</translation>
    </message>
    <message>
        <source>Record raw files</source>
        <translation>RAW ファイルに記録</translation>
    </message>
    <message>
        <source>Write the values of each image into a file</source>
        <translation>画像の値をそれぞれファイルに書き込む</translation>
    </message>
    <message>
        <source>Record video</source>
        <translation>動画に記録</translation>
    </message>
    <message>
        <source>Write the images into a video</source>
        <translation>画像を動画に書き込む</translation>
    </message>
    <message>
        <source>Recording folder…</source>
        <translation>記録先フォルダー…</translation>
    </message>
    <message>
        <source>Choose where recordings are written</source>
        <translation>記録の書き込み先を選ぶ</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>記録を停止</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>色</translation>
    </message>
    <message>
        <source>False colours</source>
        <translation>疑似カラー</translation>
    </message>
    <message>
        <source>Black and white</source>
        <translation>黒と白</translation>
    </message>
    <message>
        <source>Which values are black and white</source>
        <translation>黒と白にする値</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Save the image</source>
        <translation>画像を保存</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>記録</translation>
    </message>
    <message>
        <source>Record the images</source>
        <translation>画像を記録</translation>
    </message>
</context>
<context>
    <name>Host::CImageDock</name>
    <message>
        <source>Copied %1 × %2 pixels</source>
        <translation>%1 × %2 ピクセルをコピーしました</translation>
    </message>
    <message>
        <source>Recording folder</source>
        <translation>記録先フォルダー</translation>
    </message>
    <message>
        <source>Image tools</source>
        <translation>画像ツール</translation>
    </message>
</context>
<context>
    <name>Host::CImageFiles</name>
    <message>
        <source>it is a folder</source>
        <translation>フォルダーです</translation>
    </message>
    <message>
        <source>no image, or a broken one</source>
        <translation>画像ではないか、壊れています</translation>
    </message>
    <message>
        <source>no image in the folder %1; it takes %2</source>
        <translation>フォルダー %1 に画像がありません。使えるのは %2 です</translation>
    </message>
    <message>
        <source>no file matches %1</source>
        <translation>%1 に一致するファイルはありません</translation>
    </message>
    <message>
        <source>no such folder or file: %1</source>
        <translation>フォルダーもファイルもありません: %1</translation>
    </message>
    <message>
        <source>image %1</source>
        <comment>one that stands in for a camera</comment>
        <translation>画像 %1</translation>
    </message>
    <message>
        <source>%1 images of %2</source>
        <translation>%2 の画像 %1 枚</translation>
    </message>
    <message>
        <source>cannot read %1: %2</source>
        <translation>%1 を読み取れません: %2</translation>
    </message>
</context>
<context>
    <name>Host::CImageSaver</name>
    <message>
        <source>Save image</source>
        <translation>画像を保存</translation>
    </message>
    <message>
        <source>image-%1</source>
        <translation>image-%1</translation>
    </message>
    <message>
        <source>Save view</source>
        <translation>表示を保存</translation>
    </message>
    <message>
        <source>view</source>
        <translation>view</translation>
    </message>
    <message>
        <source>PNG images (*.png)</source>
        <translation>PNG 画像 (*.png)</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 を保存しました</translation>
    </message>
    <message>
        <source>Cannot save %1: %2</source>
        <translation>%1 を保存できません: %2</translation>
    </message>
    <message>
        <source>the image has no PNG form</source>
        <translation>画像を PNG にできません</translation>
    </message>
</context>
<context>
    <name>Host::CImageStatus</name>
    <message>
        <source>Image status</source>
        <translation>画像の状態</translation>
    </message>
    <message>
        <source>Value under the cursor</source>
        <translation>カーソル位置の値</translation>
    </message>
    <message>
        <source>Rates</source>
        <translation>レート</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>メッセージ</translation>
    </message>
    <message>
        <source>%1 of %2 frames/s shown</source>
        <translation>毎秒 %2 のうち %1 を表示</translation>
    </message>
    <message>
        <source>x %1  y %2: %3</source>
        <translation>x %1  y %2: %3</translation>
    </message>
</context>
<context>
    <name>Host::CImageView</name>
    <message>
        <source>Image</source>
        <translation>画像</translation>
    </message>
    <message>
        <source>Arrow keys move the view, with Alt the pixel whose value is told, with Ctrl the rectangle, with Shift its corner.</source>
        <translation>矢印キーで表示を移動、Alt で値を示すピクセル、Ctrl で矩形、Shift で矩形の角を動かします。</translation>
    </message>
    <message>
        <source>No image</source>
        <translation>画像なし</translation>
    </message>
</context>
<context>
    <name>Host::CJsonTree</name>
    <message>
        <source>an array</source>
        <translation>配列</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>オブジェクト</translation>
    </message>
    <message>
        <source>the string %1</source>
        <translation>文字列 %1</translation>
    </message>
    <message>
        <source>the number %1</source>
        <translation>数値 %1</translation>
    </message>
</context>
<context>
    <name>Host::CModelCatalogue</name>
    <message>
        <source>making %1</source>
        <translation>%1 の作成</translation>
    </message>
</context>
<context>
    <name>Host::CModelPalette</name>
    <message>
        <source>Models</source>
        <translation>モデル</translation>
    </message>
    <message>
        <source>Search models</source>
        <translation>モデルを検索</translation>
    </message>
    <message>
        <source>Models by category</source>
        <translation>分類別のモデル</translation>
    </message>
</context>
<context>
    <name>Host::CNodeReader</name>
    <message>
        <source>a %1 cannot be made</source>
        <translation>%1 を作成できません</translation>
    </message>
    <message>
        <source>no model %1 is registered</source>
        <translation>モデル%1は登録されていません</translation>
    </message>
    <message>
        <source>asking for ports</source>
        <translation>ポートの問い合わせ</translation>
    </message>
    <message>
        <source>a sink needs a name for its folder: &quot;property&quot;: {&quot;sink_name&quot;: …}</source>
        <translation>シンクにはフォルダーの名前が必要です: &quot;property&quot;: {&quot;sink_name&quot;: …}</translation>
    </message>
    <message>
        <source>the sink&apos;s name %1 makes no folder</source>
        <translation>シンクの名前 %1 はフォルダー名にできません</translation>
    </message>
    <message>
        <source>a second sink %1, after that at %2</source>
        <translation>シンク %1 が %2 に続いて 2 つあります</translation>
    </message>
</context>
<context>
    <name>Host::CNodeTexts</name>
    <message>
        <source>received</source>
        <translation>受信</translation>
    </message>
    <message>
        <source>emitted</source>
        <translation>送出</translation>
    </message>
    <message>
        <source>dropped</source>
        <translation>破棄</translation>
    </message>
    <message>
        <source>pending</source>
        <translation>待機</translation>
    </message>
    <message>
        <source>rate</source>
        <translation>レート</translation>
    </message>
    <message>
        <source>%1 fps</source>
        <translation>%1 fps</translation>
    </message>
    <message>
        <source>work</source>
        <translation>処理</translation>
    </message>
    <message>
        <source>%1 ms</source>
        <translation>%1 ms</translation>
    </message>
</context>
<context>
    <name>Host::CRangeBar</name>
    <message>
        <source>Black and white</source>
        <translation>黒と白</translation>
    </message>
    <message>
        <source>&amp;Black</source>
        <translation>黒(&amp;B)</translation>
    </message>
    <message>
        <source>&amp;White</source>
        <translation>白(&amp;W)</translation>
    </message>
    <message>
        <source>Value shown as black</source>
        <translation>黒として表示する値</translation>
    </message>
    <message>
        <source>Value shown as white</source>
        <translation>白として表示する値</translation>
    </message>
</context>
<context>
    <name>Host::CReconnectingCamera</name>
    <message>
        <source>%1; it did not come back for %2 s</source>
        <translation>%1。%2 秒間復帰しませんでした</translation>
    </message>
</context>
<context>
    <name>Host::CRecordBar</name>
    <message>
        <source>Recording</source>
        <translation>記録中</translation>
    </message>
    <message>
        <source>Finishing, %1 waiting</source>
        <translation>終了処理中、残り %1</translation>
    </message>
    <message>
        <source>Recorded</source>
        <translation>記録済み</translation>
    </message>
    <message>
        <source>Recording ended</source>
        <translation>記録が終了しました</translation>
    </message>
    <message>
        <source>Not recorded</source>
        <translation>記録できませんでした</translation>
    </message>
    <message>
        <source>Counts of the recording</source>
        <translation>記録の件数</translation>
    </message>
    <message>
        <source>Folder or error of the recording</source>
        <translation>記録のフォルダーまたはエラー</translation>
    </message>
    <message>
        <source>Hide the recording&apos;s counts</source>
        <translation>記録の件数を隠す</translation>
    </message>
    <message>
        <source>%1 received · %2 written · %3 dropped</source>
        <translation>受信 %1 · 書込 %2 · 破棄 %3</translation>
    </message>
</context>
<context>
    <name>Host::CRecorder</name>
    <message>
        <source>No folder can be made in %1.</source>
        <translation>%1 にフォルダーを作成できません。</translation>
    </message>
</context>
<context>
    <name>Host::CSceneFiles</name>
    <message>
        <source>the scene has no camera</source>
        <translation>シーンにカメラがありません</translation>
    </message>
    <message>
        <source>the scene is gone</source>
        <translation>シーンはもうありません</translation>
    </message>
    <message>
        <source>nothing of &apos;%1&apos; could be made</source>
        <translation>「%1」の要素を1つも作成できませんでした</translation>
    </message>
    <message>
        <source>the scene cannot be cleared</source>
        <translation>シーンを空にできません</translation>
    </message>
    <message>
        <source>cannot open &apos;%1&apos;</source>
        <translation>「%1」を開けません</translation>
    </message>
    <message>
        <source>cannot import &apos;%1&apos;</source>
        <translation>「%1」をインポートできません</translation>
    </message>
</context>
<context>
    <name>Host::CSceneLoader</name>
    <message>
        <source>the scene is gone</source>
        <translation>シーンはもうありません</translation>
    </message>
    <message>
        <source>connections[%1]: the scene refuses it</source>
        <translation>connections[%1]: シーンが受け付けません</translation>
    </message>
    <message>
        <source>making %1</source>
        <translation>%1 の作成</translation>
    </message>
</context>
<context>
    <name>Host::CSceneReader</name>
    <message>
        <source>none of the nodes is a %1, the camera of the run</source>
        <translation>実行のカメラである %1 がノードの中にありません</translation>
    </message>
    <message>
        <source>a unique %1 is not made of a document, and there is none to refer to</source>
        <translation>一意の %1 はドキュメントから作成されず、参照できるものもありません</translation>
    </message>
    <message>
        <source>a %1 is a source without a camera; only a %2 stands for one</source>
        <translation>%1 はカメラのないソースです。カメラを表すのは %2 だけです</translation>
    </message>
    <message>
        <source>a second %1, after that at %2; a scene has one camera</source>
        <translation>%1 が %2 に続いて 2 つあります。シーンのカメラは 1 台です</translation>
    </message>
    <message>
        <source>%1 is no id; one is like %2</source>
        <translation>%1 は ID ではありません。ID は %2 のような形です</translation>
    </message>
    <message>
        <source>a second node of this id, after that at %1</source>
        <translation>この ID のノードが %1 に続いて 2 つあります</translation>
    </message>
    <message>
        <source>no node has the id %1</source>
        <translation>ID が %1 のノードはありません</translation>
    </message>
</context>
<context>
    <name>Host::CSceneTabs</name>
    <message>
        <source>Close %1</source>
        <translation>%1 を閉じる</translation>
    </message>
    <message>
        <source>Connect a camera at the left to see it, or open a scene.
Ctrl+K finds every command.</source>
        <translation>左でカメラを接続するか、シーンを開いてください。
Ctrl+K ですべてのコマンドを検索できます。</translation>
    </message>
</context>
<context>
    <name>Host::CSettingField</name>
    <message>
        <source>Back to the default, %1</source>
        <translation>既定値 %1 に戻す</translation>
    </message>
    <message>
        <source>Default of %1</source>
        <translation>%1 の既定値</translation>
    </message>
</context>
<context>
    <name>Host::CSettingTexts</name>
    <message>
        <source>&apos;%1&apos; takes one of %2, not %3</source>
        <translation>「%1」の値は %2 のいずれかで、%3 は使えません</translation>
    </message>
    <message>
        <source>&apos;%1&apos; takes text, not %2</source>
        <translation>「%1」の値は文字列で、%2 は使えません</translation>
    </message>
    <message>
        <source>&apos;%1&apos; takes %2, not %3</source>
        <translation>「%1」の値は %2 で、%3 は使えません</translation>
    </message>
    <message>
        <source>&apos;%1&apos; takes %2, %3, not %4</source>
        <comment>name, type, range</comment>
        <translation>「%1」の値は %2、%3 で、%4 は使えません</translation>
    </message>
    <message>
        <source>the sink&apos;s name %1 makes no folder</source>
        <translation>シンクの名前 %1 はフォルダー名にできません</translation>
    </message>
    <message>
        <source>&apos;%1&apos; cannot be set; a chain gives it</source>
        <translation>「%1」は設定できません。チェーンで決まります</translation>
    </message>
    <message>
        <source>it is gone</source>
        <translation>もうありません</translation>
    </message>
    <message>
        <source>it has no settings</source>
        <translation>設定がありません</translation>
    </message>
    <message>
        <source>it has no setting %1; it has %2</source>
        <translation>設定 %1 はありません。設定は %2 です</translation>
    </message>
    <message>
        <source>it has no setting %1; %2 It has %3</source>
        <comment>%2 is a question</comment>
        <translation>設定 %1 はありません。%2設定は %3 です</translation>
    </message>
</context>
<context>
    <name>Host::CSettingsCheck</name>
    <message>
        <source>making %1</source>
        <translation>%1 の作成</translation>
    </message>
    <message>
        <source>unknown key %1, which %2 does not keep</source>
        <translation>不明なキー %1 です。%2 はこれを保持しません</translation>
    </message>
    <message>
        <source>%1 for %2 is not taken; it stays %3</source>
        <translation>%2 に対する %1 は受け付けられず、%3 のままです</translation>
    </message>
    <message>
        <source>%1 has no setting %2, nor any other</source>
        <translation>%1 に設定 %2 はなく、ほかの設定もありません</translation>
    </message>
    <message>
        <source>%1 has no setting %2</source>
        <translation>%1 に設定 %2 はありません</translation>
    </message>
    <message>
        <source>a value like %1</source>
        <translation>%1 のような値</translation>
    </message>
    <message>
        <source>%1, where %2 belongs</source>
        <translation>%2が必要な箇所に %1 があります</translation>
    </message>
    <message>
        <source>%1, where a rate above 0 belongs</source>
        <translation>0 より大きいレートが必要な箇所に %1 があります</translation>
    </message>
    <message>
        <source>%1 refuses %2</source>
        <translation>%1 は %2 を受け付けません</translation>
    </message>
    <message>
        <source>%1 takes %2, not %3</source>
        <translation>%1 の値は%2で、%3 は使えません</translation>
    </message>
    <message>
        <source>it stays %1</source>
        <translation>%1 のままです</translation>
    </message>
</context>
<context>
    <name>Host::CSettingsPanel</name>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>This node has no settings.</source>
        <translation>このノードには設定がありません。</translation>
    </message>
    <message>
        <source>Choose a node to see its settings.</source>
        <translation>ノードを選ぶと設定が表示されます。</translation>
    </message>
</context>
<context>
    <name>Host::CShapeCheck</name>
    <message>
        <source>a smaller number</source>
        <translation>より小さい数値</translation>
    </message>
    <message>
        <source>a whole number</source>
        <translation>整数</translation>
    </message>
    <message>
        <source>true or false</source>
        <translation>true または false</translation>
    </message>
    <message>
        <source>an array</source>
        <translation>配列</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>オブジェクト</translation>
    </message>
    <message>
        <source>a number</source>
        <translation>数値</translation>
    </message>
    <message>
        <source>a string</source>
        <translation>文字列</translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <comment>types of JSON</comment>
        <translation>%1または%2</translation>
    </message>
    <message>
        <source>%1, where %2 belongs: %3</source>
        <translation>%2が必要な箇所に %1 があります: %3</translation>
    </message>
    <message>
        <source>allowed are %1</source>
        <translation>使えるのは %1 です</translation>
    </message>
    <message>
        <source>unknown key %1</source>
        <translation>不明なキー %1 です</translation>
    </message>
    <message>
        <source>%1 lacks %2</source>
        <translation>%1に %2 がありません</translation>
    </message>
    <message>
        <source>%1 is empty</source>
        <translation>%1が空です</translation>
    </message>
    <message>
        <source>%1, where %2 belongs, from %3</source>
        <translation>%2 (%3 以上) が必要な箇所に %1 があります</translation>
    </message>
</context>
<context>
    <name>Host::CSharedCamera</name>
    <message>
        <source>camera &apos;%1&apos; has gone</source>
        <translation>カメラ「%1」が応答しなくなりました</translation>
    </message>
</context>
<context>
    <name>Host::CStatisticsTable</name>
    <message>
        <source>Grey</source>
        <translation>グレー</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>青</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>緑</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>赤</translation>
    </message>
    <message>
        <source>Statistics of the rectangle</source>
        <translation>矩形の統計</translation>
    </message>
    <message>
        <source>%1 × %2 at %3, %4</source>
        <translation>%1 × %2、位置 %3, %4</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>平均</translation>
    </message>
    <message>
        <source>Min</source>
        <translation>最小</translation>
    </message>
    <message>
        <source>Max</source>
        <translation>最大</translation>
    </message>
    <message>
        <source>Deviation</source>
        <translation>偏差</translation>
    </message>
</context>
<context>
    <name>Host::CSyntaxTexts</name>
    <message>
        <source>%1 is no quote of JSON, which has straight ones: &quot;</source>
        <translation>%1 は JSON の引用符ではありません。まっすぐな引用符を使います: &quot;</translation>
    </message>
    <message>
        <source>U+%1 looks like a blank, and is none of JSON</source>
        <translation>U+%1 は空白のように見えますが、JSON の空白ではありません</translation>
    </message>
    <message>
        <source>the document ends within the array that begins at %1</source>
        <translation>%1 で始まる配列の途中でドキュメントが終わっています</translation>
    </message>
    <message>
        <source>the document ends within the object that begins at %1</source>
        <translation>%1 で始まるオブジェクトの途中でドキュメントが終わっています</translation>
    </message>
    <message>
        <source>&apos;]&apos; belongs here, to close the array that begins at %1</source>
        <translation>%1 で始まる配列を閉じる &apos;]&apos; がここに必要です</translation>
    </message>
    <message>
        <source>&apos;}&apos; belongs here, to close the object that begins at %1</source>
        <translation>%1 で始まるオブジェクトを閉じる &apos;}&apos; がここに必要です</translation>
    </message>
    <message>
        <source>JSON has strings in double quotes only</source>
        <translation>JSON の文字列は二重引用符で囲みます</translation>
    </message>
    <message>
        <source>JSON has no comments</source>
        <translation>JSON にコメントはありません</translation>
    </message>
    <message>
        <source>a value is missing before %1</source>
        <translation>%1 の前に値がありません</translation>
    </message>
    <message>
        <source>%1 is no number</source>
        <translation>%1 は数値ではありません</translation>
    </message>
    <message>
        <source>%1 is no value</source>
        <translation>%1 は値ではありません</translation>
    </message>
    <message>
        <source>strings stand in double quotes</source>
        <translation>文字列は二重引用符で囲みます</translation>
    </message>
    <message>
        <source>a key stands in double quotes</source>
        <translation>キーは二重引用符で囲みます</translation>
    </message>
    <message>
        <source>a key is missing before %1</source>
        <translation>%1 の前にキーがありません</translation>
    </message>
    <message>
        <source>a number does not begin with 0</source>
        <translation>数値は 0 で始まりません</translation>
    </message>
    <message>
        <source>&apos;,&apos; or &apos;]&apos; is missing before this</source>
        <translation>この前に &apos;,&apos; または &apos;]&apos; がありません</translation>
    </message>
    <message>
        <source>&apos;,&apos; or &apos;}&apos; is missing before this</source>
        <translation>この前に &apos;,&apos; または &apos;}&apos; がありません</translation>
    </message>
    <message>
        <source>a string ends on the line where it begins; a line break in it is written \n</source>
        <translation>文字列は始まった行で終わります。文字列中の改行は \n と書きます</translation>
    </message>
    <message>
        <source>a control character in a string is written \u%1</source>
        <translation>文字列中の制御文字は \u%1 と書きます</translation>
    </message>
    <message>
        <source>four digits belong behind \u, each from 0 to 9 or a to f</source>
        <translation>\u の後には 0～9 または a～f の 4 桁が必要です</translation>
    </message>
    <message>
        <source>half a letter; \ud800 to \udfff stand in pairs</source>
        <translation>文字の半分だけです。\ud800～\udfff は対で使います</translation>
    </message>
    <message>
        <source>no such escape; a backslash itself is written \\</source>
        <translation>このようなエスケープはありません。バックスラッシュ自体は \\ と書きます</translation>
    </message>
    <message>
        <source>the document is empty</source>
        <translation>ドキュメントが空です</translation>
    </message>
    <message>
        <source>&apos;/&apos; is nothing that JSON has</source>
        <translation>JSON に &apos;/&apos; はありません</translation>
    </message>
    <message>
        <source>JSON has no comments, and this one has no end</source>
        <translation>JSON にコメントはなく、このコメントには終わりもありません</translation>
    </message>
    <message>
        <source>the document ends within a string</source>
        <translation>文字列の途中でドキュメントが終わっています</translation>
    </message>
    <message>
        <source>something stands behind the end of the document</source>
        <translation>ドキュメントの終わりの後に何かがあります</translation>
    </message>
    <message>
        <source>&apos;:&apos; is missing behind the key</source>
        <translation>キーの後に &apos;:&apos; がありません</translation>
    </message>
    <message>
        <source>the number is too large</source>
        <translation>数値が大きすぎます</translation>
    </message>
    <message>
        <source>a digit belongs behind the point of a number</source>
        <translation>数値の小数点の後には数字が必要です</translation>
    </message>
    <message>
        <source>a digit belongs behind the &apos;e&apos; of a number</source>
        <translation>数値の &apos;e&apos; の後には数字が必要です</translation>
    </message>
    <message>
        <source>this is no JSON</source>
        <translation>これは JSON ではありません</translation>
    </message>
</context>
<context>
    <name>Host::CTreeBuilder</name>
    <message>
        <source>%1 is no JSON: numbers are finite there</source>
        <translation>%1 は JSON ではありません。JSON の数値は有限です</translation>
    </message>
    <message>
        <source>arrays and objects nest too deep</source>
        <translation>配列とオブジェクトの入れ子が深すぎます</translation>
    </message>
    <message>
        <source>a comma behind the last item is no JSON</source>
        <translation>最後の項目の後のコンマは JSON では使えません</translation>
    </message>
    <message>
        <source>a comma behind the last member is no JSON</source>
        <translation>最後のメンバーの後のコンマは JSON では使えません</translation>
    </message>
    <message>
        <source>more than %1 values</source>
        <translation>値が %1 個を超えています</translation>
    </message>
    <message>
        <source>JSON has no comments</source>
        <translation>JSON にコメントはありません</translation>
    </message>
    <message>
        <source>a second key %1, after that at %2; only one would count</source>
        <translation>キー %1 が %2 に続いて 2 つあります。有効なのは 1 つだけです</translation>
    </message>
</context>
<context>
    <name>Host::CVideoFile</name>
    <message>
        <source>the image is empty</source>
        <translation>画像が空です</translation>
    </message>
    <message>
        <source>an image is %1, the video %2</source>
        <comment>width x height</comment>
        <translation>画像は %1、動画は %2 です</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>デバイスに空き容量がありません</translation>
    </message>
    <message>
        <source>the encoder refuses it</source>
        <translation>エンコーダーが受け付けません</translation>
    </message>
    <message>
        <source>it did not become complete; is the disk full?</source>
        <translation>最後まで書き込めませんでした。ディスクがいっぱいではありませんか?</translation>
    </message>
</context>
<context>
    <name>Host::CVideoReader</name>
    <message>
        <source>video %1</source>
        <comment>one that stands in for a camera</comment>
        <translation>動画 %1</translation>
    </message>
    <message>
        <source>cannot read the video %1: %2</source>
        <translation>動画 %1 を読み取れません: %2</translation>
    </message>
    <message>
        <source>cannot read the video %1: no video, or one in a format that is not known here</source>
        <translation>動画 %1 を読み取れません: 動画ではないか、対応していない形式です</translation>
    </message>
    <message>
        <source>no frame of the video %1 can be read</source>
        <translation>動画 %1 のフレームを 1 つも読み取れません</translation>
    </message>
    <message>
        <source>the video %1 ends after %2 of %3 frames: a part of it is missing or broken</source>
        <translation>動画 %1 は %3 フレーム中 %2 フレームで終わっています。一部が欠けているか壊れています</translation>
    </message>
</context>
<context>
    <name>Host::CViewModel</name>
    <message>
        <source>Image view</source>
        <translation>画像表示</translation>
    </message>
    <message>
        <source>This is no image that can be shown.</source>
        <translation>表示できる画像ではありません。</translation>
    </message>
</context>
<context>
    <name>Host::CViewerDocks</name>
    <message>
        <source>Cameras</source>
        <translation>カメラ</translation>
    </message>
    <message>
        <source>Features</source>
        <translation>機能</translation>
    </message>
    <message>
        <source>Models</source>
        <translation>モデル</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>Faults</source>
        <translation>問題</translation>
    </message>
    <message>
        <source>History</source>
        <translation>履歴</translation>
    </message>
    <message>
        <source>Before the first change</source>
        <translation>最初の変更の前</translation>
    </message>
    <message>
        <source>History of changes</source>
        <translation>変更の履歴</translation>
    </message>
</context>
<context>
    <name>Host::CViewerMenus</name>
    <message>
        <source>Undo</source>
        <translation>元に戻す</translation>
    </message>
    <message>
        <source>Undo: %1</source>
        <translation>元に戻す: %1</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>やり直す</translation>
    </message>
    <message>
        <source>Redo: %1</source>
        <translation>やり直す: %1</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>編集(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Cameras</source>
        <translation>カメラ(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Graph</source>
        <translation>グラフ(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Images</source>
        <translation>画像(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>表示(&amp;V)</translation>
    </message>
    <message>
        <source>Open recent</source>
        <translation>最近使ったファイル</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>配色</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>言語</translation>
    </message>
    <message>
        <source>New scene</source>
        <translation>新しいシーン</translation>
    </message>
    <message>
        <source>Previous scene</source>
        <translation>前のシーン</translation>
    </message>
    <message>
        <source>Next scene</source>
        <translation>次のシーン</translation>
    </message>
    <message>
        <source>Open scene…</source>
        <translation>シーンを開く…</translation>
    </message>
    <message>
        <source>Save scene</source>
        <translation>シーンを保存</translation>
    </message>
    <message>
        <source>Save scene as…</source>
        <translation>シーンに名前を付けて保存…</translation>
    </message>
    <message>
        <source>Import chain…</source>
        <translation>チェーンをインポート…</translation>
    </message>
    <message>
        <source>Close scene</source>
        <translation>シーンを閉じる</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>Show the camera&apos;s image</source>
        <translation>カメラの画像を表示</translation>
    </message>
    <message>
        <source>Commands…</source>
        <translation>コマンド…</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>全画面表示</translation>
    </message>
    <message>
        <source>As the desktop</source>
        <translation>デスクトップに合わせる</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>ライト</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>ダーク</translation>
    </message>
</context>
<context>
    <name>Host::CViewerStatus</name>
    <message>
        <source>The window was held up for %1 ms</source>
        <translation>ウィンドウが %1 ms 止まりました</translation>
    </message>
    <message>
        <source>%1 held up the window for %2 ms</source>
        <translation>%1 がウィンドウを %2 ms 止めました</translation>
    </message>
    <message>
        <source>No camera connected</source>
        <translation>カメラ未接続</translation>
    </message>
    <message>
        <source>Cameras streaming: %1 of %2 · %3 frames/s</source>
        <translation>取り込み中のカメラ: %2 台中 %1 台 · %3 フレーム/秒</translation>
    </message>
</context>
<context>
    <name>Host::CViewerWindow</name>
    <message>
        <source>Show the camera&apos;s image</source>
        <translation>カメラの画像を表示</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>シーン %1</translation>
    </message>
    <message>
        <source>There is no scene to open it in.</source>
        <translation>開く先のシーンがありません。</translation>
    </message>
    <message>
        <source>Opened %1</source>
        <translation>%1 を開きました</translation>
    </message>
    <message>
        <source>There is no scene to save.</source>
        <translation>保存するシーンがありません。</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 を保存しました</translation>
    </message>
    <message>
        <source>A chain needs a scene: connect a camera first.</source>
        <translation>チェーンにはシーンが必要です。先にカメラを接続してください。</translation>
    </message>
    <message>
        <source>Imported %1</source>
        <translation>%1 をインポートしました</translation>
    </message>
    <message>
        <source>Documents (*.json);;All files (*)</source>
        <translation>ドキュメント (*.json);;すべてのファイル (*)</translation>
    </message>
    <message>
        <source>Open scene</source>
        <translation>シーンを開く</translation>
    </message>
    <message>
        <source>Import chain</source>
        <translation>チェーンをインポート</translation>
    </message>
    <message>
        <source>Save scene</source>
        <translation>シーンを保存</translation>
    </message>
    <message>
        <source>%1 has changes that are not saved.</source>
        <translation>%1 には保存されていない変更があります。</translation>
    </message>
    <message>
        <source>Halvex Viewer</source>
        <translation>Halvex ビューアー</translation>
    </message>
    <message>
        <source>Scenes</source>
        <translation>シーン</translation>
    </message>
</context>
<context>
    <name>Host::CWordFinder</name>
    <message>
        <source>%1, %2</source>
        <comment>names that are listed</comment>
        <translation>%1、%2</translation>
    </message>
    <message>
        <source>there is only %1</source>
        <translation>あるのは %1 だけです</translation>
    </message>
    <message>
        <source>there are %1</source>
        <translation>あるのは %1 です</translation>
    </message>
    <message>
        <source>%1 and %2</source>
        <comment>names that are listed</comment>
        <translation>%1、%2</translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <comment>names that are listed</comment>
        <translation>%1、%2</translation>
    </message>
</context>
<context>
    <name>Host::ClosestWords</name>
    <message>
        <source>did you mean %1?</source>
        <translation>%1ではありませんか?</translation>
    </message>
    <message>
        <source>did you mean %1 or %2?</source>
        <translation>%1または%2ではありませんか?</translation>
    </message>
    <message>
        <source>did you mean %1 or %2 or %3?</source>
        <translation>%1、%2または%3ではありませんか?</translation>
    </message>
    <message>
        <source>%1; %2</source>
        <comment>what is wrong; a question or a hint</comment>
        <translation>%1。%2</translation>
    </message>
</context>
<context>
    <name>Host::ConnectionText</name>
    <message>
        <source>%1 to %2</source>
        <comment>types of data</comment>
        <translation>%1 から %2 へ</translation>
    </message>
</context>
<context>
    <name>Host::Device</name>
    <message>
        <source>cannot open camera &apos;%1&apos;: %2</source>
        <translation>カメラ「%1」を開けません: %2</translation>
    </message>
</context>
<context>
    <name>Host::DocumentFile</name>
    <message>
        <source>%1: it has 1 error:
%2</source>
        <comment>what cannot be done</comment>
        <translation>%1: エラーが 1 件あります:
%2</translation>
    </message>
    <message>
        <source>%1: it has %2 errors:
%3</source>
        <comment>what cannot be done</comment>
        <translation>%1: エラーが %2 件あります:
%3</translation>
    </message>
</context>
<context>
    <name>Host::FaultReport</name>
    <message>
        <source>error</source>
        <translation>エラー</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>警告</translation>
    </message>
</context>
<context>
    <name>Host::InputFile</name>
    <message>
        <source>it is larger than 64 MiB</source>
        <translation>64 MiB を超えています</translation>
    </message>
    <message>
        <source>cannot read &apos;%1&apos;: %2</source>
        <translation>「%1」を読み取れません: %2</translation>
    </message>
</context>
<context>
    <name>Host::JsonText</name>
    <message>
        <source>the file is %1; save it as UTF-8, which is what JSON is</source>
        <translation>ファイルが %1 です。JSON は UTF-8 なので、UTF-8 で保存してください</translation>
    </message>
    <message>
        <source>these bytes are no UTF-8</source>
        <translation>このバイト列は UTF-8 ではありません</translation>
    </message>
    <message>
        <source>a zero byte, which no text has</source>
        <translation>テキストにはないはずのゼロバイトです</translation>
    </message>
</context>
<context>
    <name>Host::ModelText</name>
    <message>
        <source>Filters</source>
        <translation>フィルター</translation>
    </message>
    <message>
        <source>Sinks</source>
        <translation>シンク</translation>
    </message>
    <message>
        <source>Sources</source>
        <translation>ソース</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>ツール</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>ぼかし</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>カメラ</translation>
    </message>
    <message>
        <source>Camera Source</source>
        <translation>カメラソース</translation>
    </message>
    <message>
        <source>DecouplerVGR</source>
        <translation>VGR 用デカップラー</translation>
    </message>
    <message>
        <source>Edges</source>
        <translation>エッジ</translation>
    </message>
    <message>
        <source>Histogram</source>
        <translation>ヒストグラム</translation>
    </message>
    <message>
        <source>Image View</source>
        <translation>画像ビュー</translation>
    </message>
    <message>
        <source>PNG Sink</source>
        <translation>PNG シンク</translation>
    </message>
    <message>
        <source>PNG files</source>
        <translation>PNG ファイル</translation>
    </message>
    <message>
        <source>Raw Sink</source>
        <translation>RAW シンク</translation>
    </message>
    <message>
        <source>Raw files</source>
        <translation>RAW ファイル</translation>
    </message>
    <message>
        <source>Threshold</source>
        <translation>しきい値</translation>
    </message>
    <message>
        <source>To Image</source>
        <translation>画像へ変換</translation>
    </message>
    <message>
        <source>To image</source>
        <translation>画像へ変換</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>動画</translation>
    </message>
    <message>
        <source>Video Sink</source>
        <translation>動画シンク</translation>
    </message>
    <message>
        <source>Frames per second</source>
        <translation>毎秒フレーム数</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>レベル</translation>
    </message>
    <message>
        <source>Method</source>
        <translation>方法</translation>
    </message>
    <message>
        <source>Most waiting</source>
        <translation>最大待機数</translation>
    </message>
    <message>
        <source>Parallelism</source>
        <translation>並列数</translation>
    </message>
    <message>
        <source>Policy</source>
        <translation>方針</translation>
    </message>
    <message>
        <source>Priority</source>
        <translation>優先度</translation>
    </message>
    <message>
        <source>Sink name</source>
        <translation>シンク名</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>サイズ</translation>
    </message>
    <message>
        <source>View name</source>
        <translation>ビュー名</translation>
    </message>
    <message>
        <source>Write every</source>
        <translation>書き込み間隔</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>バックグラウンド</translation>
    </message>
    <message>
        <source>Box</source>
        <translation>ボックス</translation>
    </message>
    <message>
        <source>Canny</source>
        <translation>Canny</translation>
    </message>
    <message>
        <source>Drop newest</source>
        <translation>最新を破棄</translation>
    </message>
    <message>
        <source>Drop oldest</source>
        <translation>最古を破棄</translation>
    </message>
    <message>
        <source>Fixed</source>
        <translation>固定</translation>
    </message>
    <message>
        <source>Gaussian</source>
        <translation>ガウス</translation>
    </message>
    <message>
        <source>Median</source>
        <translation>メディアン</translation>
    </message>
    <message>
        <source>Newest wins</source>
        <translation>最新を優先</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>通常</translation>
    </message>
    <message>
        <source>Otsu</source>
        <translation>大津</translation>
    </message>
    <message>
        <source>Sobel</source>
        <translation>Sobel</translation>
    </message>
    <message>
        <source>Background keeps one core free for what is recorded, as is right for previews.</source>
        <translation>「バックグラウンド」は記録のためにコアを 1 つ空けておきます。プレビューに適しています。</translation>
    </message>
    <message>
        <source>Canny draws thin lines, and follows an edge down to a third of &apos;level&apos;; Sobel draws all of it.</source>
        <translation>Canny は細い線を描き、「レベル」の 3 分の 1 までエッジをたどります。Sobel はすべてを描きます。</translation>
    </message>
    <message>
        <source>Gaussian keeps most detail, Box is fastest, Median removes single wrong pixels.</source>
        <translation>ガウスは細部を最も残し、ボックスは最も速く、メディアンは孤立した不良画素を除きます。</translation>
    </message>
    <message>
        <source>Grey values above it become white. Otsu does not ask for it.</source>
        <translation>これより大きい輝度値は白になります。「大津」では使いません。</translation>
    </message>
    <message>
        <source>How fast the video plays.</source>
        <translation>動画の再生速度です。</translation>
    </message>
    <message>
        <source>How much the grey value must change.</source>
        <translation>輝度値に必要な変化の大きさです。</translation>
    </message>
    <message>
        <source>It writes one of so many frames; 0: as the run says, with --write-every.</source>
        <translation>この数のフレームごとに 1 枚書き込みます。0 なら実行時の指定に従います。</translation>
    </message>
    <message>
        <source>Otsu finds the threshold that separates each image best, Fixed takes &apos;level&apos;.</source>
        <translation>「大津」は各画像を最もよく分けるしきい値を求め、「固定」は「レベル」を使います。</translation>
    </message>
    <message>
        <source>Pixels along each side of the square in which the change is looked for.</source>
        <translation>変化を調べる正方形の一辺の画素数です。</translation>
    </message>
    <message>
        <source>Pixels along each side of the square that a pixel is smoothed over.</source>
        <translation>画素を平滑化する正方形の一辺の画素数です。</translation>
    </message>
    <message>
        <source>The name of its folder. A chain gives it.</source>
        <translation>フォルダーの名前です。チェーンで決まります。</translation>
    </message>
    <message>
        <source>What stands above the image.</source>
        <translation>画像の上に表示される名前です。</translation>
    </message>
</context>
<context>
    <name>Host::Output</name>
    <message>
        <source>cannot write &apos;%1&apos;: %2</source>
        <translation>「%1」に書き込めません: %2</translation>
    </message>
    <message>
        <source>cannot make the folder &apos;%1&apos;: %2</source>
        <translation>フォルダー「%1」を作成できません: %2</translation>
    </message>
    <message>
        <source>Not a regular file</source>
        <translation>通常のファイルではありません</translation>
    </message>
</context>
<context>
    <name>Host::SFault</name>
    <message>
        <source>A document can be read.</source>
        <translation>ドキュメントは読み取れること。</translation>
    </message>
    <message>
        <source>A document is UTF-8.</source>
        <translation>ドキュメントは UTF-8 であること。</translation>
    </message>
    <message>
        <source>A document is JSON.</source>
        <translation>ドキュメントは JSON であること。</translation>
    </message>
    <message>
        <source>A value has the JSON type that belongs there.</source>
        <translation>値はその場所に合う JSON の型であること。</translation>
    </message>
    <message>
        <source>A value is one of those that are allowed.</source>
        <translation>値は許されたものであること。</translation>
    </message>
    <message>
        <source>Keys are known: one that nobody reads does nothing.</source>
        <translation>キーは既知のものであること。読まれないキーには効果がありません。</translation>
    </message>
    <message>
        <source>A key stands only once in an object.</source>
        <translation>キーは 1 つのオブジェクトに 1 つだけであること。</translation>
    </message>
    <message>
        <source>What is needed is there.</source>
        <translation>必要なものがそろっていること。</translation>
    </message>
    <message>
        <source>A model is registered.</source>
        <translation>モデルは登録されていること。</translation>
    </message>
    <message>
        <source>A model can be made from the document.</source>
        <translation>モデルはドキュメントから作成できること。</translation>
    </message>
    <message>
        <source>A model has the setting and takes its value.</source>
        <translation>モデルにその設定があり、その値を受け付けること。</translation>
    </message>
    <message>
        <source>A label or an id is that of an element or a node.</source>
        <translation>ラベルや ID は要素またはノードのものであること。</translation>
    </message>
    <message>
        <source>Labels and ids are different.</source>
        <translation>ラベルと ID は重複しないこと。</translation>
    </message>
    <message>
        <source>A connection joins ports that exist.</source>
        <translation>接続は存在するポート同士を結ぶこと。</translation>
    </message>
    <message>
        <source>The types of connected ports agree, or are converted.</source>
        <translation>接続されたポートの型は一致するか、変換されること。</translation>
    </message>
    <message>
        <source>A source is a camera or an element.</source>
        <translation>ソースはカメラまたは要素であること。</translation>
    </message>
    <message>
        <source>Something is wired to each camera.</source>
        <translation>どのカメラにも何かが接続されていること。</translation>
    </message>
    <message>
        <source>The data of a source reaches each node.</source>
        <translation>どのノードにもソースのデータが届くこと。</translation>
    </message>
    <message>
        <source>Connections lead in a circle only through a decoupler.</source>
        <translation>接続が輪になるのはデカップラーを通る場合だけであること。</translation>
    </message>
    <message>
        <source>Two ports are connected only once.</source>
        <translation>2 つのポートの接続は 1 つだけであること。</translation>
    </message>
    <message>
        <source>The name of a sink makes a folder of its own.</source>
        <translation>シンクの名前はそのシンクだけのフォルダーになること。</translation>
    </message>
</context>
<context>
    <name>Host::SchemaTitle</name>
    <message>
        <source>a camera or a label</source>
        <translation>カメラまたはラベル</translation>
    </message>
    <message>
        <source>a connection</source>
        <translation>接続</translation>
    </message>
    <message>
        <source>a converter</source>
        <translation>コンバーター</translation>
    </message>
    <message>
        <source>a data type</source>
        <translation>データ型</translation>
    </message>
    <message>
        <source>a label</source>
        <translation>ラベル</translation>
    </message>
    <message>
        <source>a label, or an object with one</source>
        <translation>ラベル、またはラベルを持つオブジェクト</translation>
    </message>
    <message>
        <source>a model</source>
        <translation>モデル</translation>
    </message>
    <message>
        <source>a node</source>
        <translation>ノード</translation>
    </message>
    <message>
        <source>a scene</source>
        <translation>シーン</translation>
    </message>
    <message>
        <source>a unique name</source>
        <translation>一意の名前</translation>
    </message>
    <message>
        <source>an element</source>
        <translation>要素</translation>
    </message>
    <message>
        <source>an id</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>an input port</source>
        <translation>入力ポート</translation>
    </message>
    <message>
        <source>an output port</source>
        <translation>出力ポート</translation>
    </message>
    <message>
        <source>arrays of what it feeds</source>
        <translation>出力先の配列</translation>
    </message>
    <message>
        <source>the connections</source>
        <translation>接続の一覧</translation>
    </message>
    <message>
        <source>the elements of a chain</source>
        <translation>チェーンの要素</translation>
    </message>
    <message>
        <source>the id of a type</source>
        <translation>型の ID</translation>
    </message>
    <message>
        <source>the id of the node that feeds</source>
        <translation>出力元のノードの ID</translation>
    </message>
    <message>
        <source>the id of the node that is fed</source>
        <translation>入力先のノードの ID</translation>
    </message>
    <message>
        <source>the label</source>
        <translation>ラベル</translation>
    </message>
    <message>
        <source>the name of a model</source>
        <translation>モデルの名前</translation>
    </message>
    <message>
        <source>the nodes</source>
        <translation>ノードの一覧</translation>
    </message>
    <message>
        <source>the schema, for editors</source>
        <translation>エディター用のスキーマ</translation>
    </message>
    <message>
        <source>the settings of the model</source>
        <translation>モデルの設定</translation>
    </message>
    <message>
        <source>the short name of a type</source>
        <translation>型の短い名前</translation>
    </message>
    <message>
        <source>the sources of each input port</source>
        <translation>各入力ポートのソース</translation>
    </message>
    <message>
        <source>the sources of one input port</source>
        <translation>1 つの入力ポートのソース</translation>
    </message>
    <message>
        <source>what it feeds</source>
        <translation>出力先</translation>
    </message>
    <message>
        <source>whether it is unique</source>
        <translation>一意かどうか</translation>
    </message>
</context>
<context>
    <name>Host::SettingProperty</name>
    <message>
        <source>true or false</source>
        <translation>true または false</translation>
    </message>
    <message>
        <source>a whole number</source>
        <translation>整数</translation>
    </message>
    <message>
        <source>a number</source>
        <translation>数値</translation>
    </message>
    <message>
        <source>a string</source>
        <translation>文字列</translation>
    </message>
    <message>
        <source>one of %1</source>
        <translation>%1 のいずれか</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>a type and its range</comment>
        <translation>%1、%2</translation>
    </message>
</context>
<context>
    <name>Host::SettingRange</name>
    <message>
        <source>from %1</source>
        <translation>%1 以上</translation>
    </message>
    <message>
        <source>%1 to %2, odd</source>
        <translation>%1～%2、奇数</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1～%2</translation>
    </message>
</context>
<context>
    <name>Host::Shown</name>
    <message>
        <source>&apos;%1&apos;</source>
        <translation>「%1」</translation>
    </message>
</context>
<context>
    <name>Host::WritePng</name>
    <message>
        <source>the image has no PNG form</source>
        <translation>画像を PNG にできません</translation>
    </message>
</context>
<context>
    <name>Host::attempt</name>
    <message>
        <source>%1 fails</source>
        <translation>%1に失敗しました</translation>
    </message>
    <message>
        <source>%1 throws: %2</source>
        <translation>%1で例外が発生しました: %2</translation>
    </message>
    <message>
        <source>%1 throws</source>
        <translation>%1で例外が発生しました</translation>
    </message>
</context>
</TS>
