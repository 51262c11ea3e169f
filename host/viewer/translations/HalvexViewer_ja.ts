<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
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
        <translation>%1 fps · %2 フレーム</translation>
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
        <source>%1 of %2 /s shown</source>
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
        <source>cannot open</source>
        <translation>開けません</translation>
    </message>
    <message>
        <source>the scene is gone</source>
        <translation>シーンはもうありません</translation>
    </message>
    <message>
        <source>cannot import</source>
        <translation>インポートできません</translation>
    </message>
    <message>
        <source>nothing of &apos;%1&apos; could be made</source>
        <translation>「%1」の要素を1つも作成できませんでした</translation>
    </message>
    <message>
        <source>the scene cannot be cleared</source>
        <translation>シーンを空にできません</translation>
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
    <message>
        <source>from %1</source>
        <translation>%1 以上</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1～%2</translation>
    </message>
    <message>
        <source>%1, odd</source>
        <translation>%1、奇数</translation>
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
        <translation>この数のフレームごとに 1 枚書き込みます。0 なら実行時の --write-every に従います。</translation>
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
</TS>
