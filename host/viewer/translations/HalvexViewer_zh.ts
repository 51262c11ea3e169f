<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh" sourcelanguage="en">
<context>
    <name>Host::CCameraList</name>
    <message>
        <source>Simulated camera</source>
        <translation>模拟相机</translation>
    </message>
    <message>
        <source>Free</source>
        <translation>空闲</translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation>正在连接</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>已连接</translation>
    </message>
    <message>
        <source>Streaming</source>
        <translation>正在采集</translation>
    </message>
    <message>
        <source>Gone, waiting for it</source>
        <translation>已消失，正在等待恢复</translation>
    </message>
    <message>
        <source>In use by another program</source>
        <translation>正被其他程序使用</translation>
    </message>
    <message>
        <source>Cannot be opened</source>
        <translation>无法打开</translation>
    </message>
    <message>
        <source>%1 frames/s · %2 frames</source>
        <translation>%1 帧/秒 · %2 帧</translation>
    </message>
</context>
<context>
    <name>Host::CCameraPanel</name>
    <message>
        <source>Folder with images</source>
        <translation>图像文件夹</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>视频</translation>
    </message>
    <message>
        <source>Videos (*.avi *.mkv *.mp4 *.mov);;All files (*)</source>
        <translation>视频 (*.avi *.mkv *.mp4 *.mov);;所有文件 (*)</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>连接</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>开始</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Single frame</source>
        <translation>单帧</translation>
    </message>
    <message>
        <source>Trigger</source>
        <translation>触发</translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation>断开</translation>
    </message>
    <message>
        <source>Open images as a camera…</source>
        <translation>将图像作为相机打开…</translation>
    </message>
    <message>
        <source>Open a video as a camera…</source>
        <translation>将视频作为相机打开…</translation>
    </message>
    <message>
        <source>Cameras</source>
        <translation>相机</translation>
    </message>
    <message>
        <source>Message of the camera</source>
        <translation>相机消息</translation>
    </message>
</context>
<context>
    <name>Host::CCameraSession</name>
    <message>
        <source>The graph has no place for this camera: its node was removed.</source>
        <translation>图中没有该相机的位置：其节点已被移除。</translation>
    </message>
</context>
<context>
    <name>Host::CCommandPalette</name>
    <message>
        <source>Commands</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>What do you want to do?</source>
        <translation>您想做什么？</translation>
    </message>
    <message>
        <source>Search commands</source>
        <translation>搜索命令</translation>
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
        <translation>错误</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>What is wrong</source>
        <translation>问题</translation>
    </message>
</context>
<context>
    <name>Host::CFaultPanel</name>
    <message>
        <source>line %1, column %2</source>
        <translation>第 %1 行，第 %2 列</translation>
    </message>
    <message>
        <source>scene</source>
        <translation>场景</translation>
    </message>
    <message>
        <source>Check</source>
        <translation>检查</translation>
    </message>
    <message>
        <source>What the check found</source>
        <translation>检查结果</translation>
    </message>
    <message>
        <source>Nothing has been checked yet.</source>
        <translation>尚未进行检查。</translation>
    </message>
    <message>
        <source>No faults were found.</source>
        <translation>未发现问题。</translation>
    </message>
    <message>
        <source>Errors: %1, warnings: %2</source>
        <translation>错误：%1，警告：%2</translation>
    </message>
</context>
<context>
    <name>Host::CFeatureEditor</name>
    <message>
        <source>Run</source>
        <translation>执行</translation>
    </message>
    <message>
        <source>Cannot be changed now</source>
        <translation>当前无法更改</translation>
    </message>
</context>
<context>
    <name>Host::CFeaturePanel</name>
    <message>
        <source>Connect a camera to see its features.</source>
        <translation>连接相机后即可查看其功能。</translation>
    </message>
    <message>
        <source>Files have no features.</source>
        <translation>文件没有相机功能。</translation>
    </message>
    <message>
        <source>Read features again</source>
        <translation>重新读取功能</translation>
    </message>
    <message>
        <source>Search features</source>
        <translation>搜索功能</translation>
    </message>
    <message>
        <source>Features of the camera</source>
        <translation>相机功能</translation>
    </message>
    <message>
        <source>Message of the camera</source>
        <translation>相机消息</translation>
    </message>
</context>
<context>
    <name>Host::CGraphActions</name>
    <message>
        <source>Undo %1</source>
        <translation>撤销：%1</translation>
    </message>
    <message>
        <source>Redo %1</source>
        <translation>重做：%1</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>剪切</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>创建副本</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Select all nodes</source>
        <translation>选择所有节点</translation>
    </message>
    <message>
        <source>Connect…</source>
        <translation>连接…</translation>
    </message>
    <message>
        <source>Arrange</source>
        <translation>自动排列</translation>
    </message>
    <message>
        <source>Find a node…</source>
        <translation>查找节点…</translation>
    </message>
    <message>
        <source>Show all</source>
        <translation>显示全部</translation>
    </message>
    <message>
        <source>Actual size</source>
        <translation>实际大小</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>放大</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>缩小</translation>
    </message>
    <message>
        <source>Overview</source>
        <translation>概览</translation>
    </message>
</context>
<context>
    <name>Host::CGraphEditor</name>
    <message>
        <source>&apos;%1&apos; was removed at once</source>
        <translation>“%1”随即被移除</translation>
    </message>
    <message>
        <source>&apos;%1&apos; cannot be added: %2</source>
        <translation>无法添加“%1”：%2</translation>
    </message>
    <message>
        <source>Add &apos;%1&apos;</source>
        <translation>添加“%1”</translation>
    </message>
    <message>
        <source>&apos;%1&apos; stays: it is what the scene was made for</source>
        <translation>“%1”保留：场景正是为它创建的</translation>
    </message>
    <message>
        <source>These ports do not fit</source>
        <translation>这些端口不匹配</translation>
    </message>
    <message>
        <source>The connection</source>
        <translation>连接</translation>
    </message>
    <message>
        <source>The connection was removed at once</source>
        <translation>连接随即被移除</translation>
    </message>
    <message>
        <source>Connect &apos;%1&apos; to &apos;%2&apos;</source>
        <translation>将“%1”连接到“%2”</translation>
    </message>
    <message>
        <source>Set %1 of &apos;%2&apos; to %3</source>
        <translation>将“%2”的 %1 设为 %3</translation>
    </message>
    <message numerus="yes">
        <source>Move %n nodes</source>
        <translation>
            <numerusform>移动 %n 个节点</numerusform>
        </translation>
    </message>
    <message>
        <source>Move &apos;%1&apos;</source>
        <translation>移动“%1”</translation>
    </message>
    <message>
        <source>The scene is gone</source>
        <translation>场景已不存在</translation>
    </message>
    <message numerus="yes">
        <source>Not everything could be brought back: %n parts are missing</source>
        <translation>
            <numerusform>未能全部恢复：缺少 %n 个部分</numerusform>
        </translation>
    </message>
    <message>
        <source>The node of this step is gone</source>
        <translation>该步骤的节点已不存在</translation>
    </message>
    <message>
        <source>Delete a connection</source>
        <translation>删除一个连接</translation>
    </message>
    <message numerus="yes">
        <source>Delete %n connections</source>
        <translation>
            <numerusform>删除 %n 个连接</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete &apos;%1&apos;</source>
        <translation>删除“%1”</translation>
    </message>
    <message numerus="yes">
        <source>Delete %n nodes</source>
        <translation>
            <numerusform>删除 %n 个节点</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 with a connection</source>
        <translation>%1（含 1 个连接）</translation>
    </message>
    <message numerus="yes">
        <source>%1 with %n connections</source>
        <translation>
            <numerusform>%1（含 %n 个连接）</numerusform>
        </translation>
    </message>
    <message>
        <source>There is nothing that can be there twice</source>
        <translation>没有可以创建副本的内容</translation>
    </message>
    <message numerus="yes">
        <source>Duplicate %n nodes</source>
        <translation>
            <numerusform>创建 %n 个节点的副本</numerusform>
        </translation>
    </message>
    <message>
        <source>Duplicate &apos;%1&apos;</source>
        <translation>创建“%1”的副本</translation>
    </message>
    <message>
        <source>There are no nodes in the text</source>
        <translation>文本中没有节点</translation>
    </message>
    <message numerus="yes">
        <source>Paste %n nodes</source>
        <translation>
            <numerusform>粘贴 %n 个节点</numerusform>
        </translation>
    </message>
    <message>
        <source>Paste a node</source>
        <translation>粘贴一个节点</translation>
    </message>
    <message>
        <source>Only a scene of the service takes chains</source>
        <translation>只有服务中的场景可以导入链</translation>
    </message>
    <message>
        <source>The chain names a model that there is not</source>
        <translation>该链使用了不存在的模型</translation>
    </message>
    <message>
        <source>There is no chain in the text</source>
        <translation>文本中没有链</translation>
    </message>
    <message numerus="yes">
        <source>Import %n nodes</source>
        <translation>
            <numerusform>导入 %n 个节点</numerusform>
        </translation>
    </message>
    <message>
        <source>Import a node</source>
        <translation>导入一个节点</translation>
    </message>
</context>
<context>
    <name>Host::CGraphOverview</name>
    <message>
        <source>Overview of the graph</source>
        <translation>图的概览</translation>
    </message>
    <message>
        <source>Click to go there</source>
        <translation>单击以跳转</translation>
    </message>
</context>
<context>
    <name>Host::CGraphSearch</name>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>%1 / %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>Find a node</source>
        <translation>查找节点</translation>
    </message>
</context>
<context>
    <name>Host::CGraphView</name>
    <message>
        <source>Graph</source>
        <translation>图</translation>
    </message>
</context>
<context>
    <name>Host::CHistogramView</name>
    <message>
        <source>Histogram</source>
        <translation>直方图</translation>
    </message>
    <message>
        <source>How often each value occurs in what is seen, or in the rectangle. The lines stand at the values that are shown as black and as white.</source>
        <translation>所见区域或矩形内各值出现的次数。竖线表示显示为黑色和白色的值。</translation>
    </message>
</context>
<context>
    <name>Host::CImageActions</name>
    <message>
        <source>Fit</source>
        <translation>适合窗口</translation>
    </message>
    <message>
        <source>Show all of the image</source>
        <translation>显示整幅图像</translation>
    </message>
    <message>
        <source>1:1</source>
        <translation>1:1</translation>
    </message>
    <message>
        <source>Show each pixel as one pixel of the screen</source>
        <translation>每个像素对应屏幕上的一个像素</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>放大</translation>
    </message>
    <message>
        <source>Show the image larger</source>
        <translation>放大显示图像</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>缩小</translation>
    </message>
    <message>
        <source>Show the image smaller</source>
        <translation>缩小显示图像</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>矩形</translation>
    </message>
    <message>
        <source>Draw a rectangle to measure in</source>
        <translation>绘制用于测量的矩形</translation>
    </message>
    <message>
        <source>Plain</source>
        <translation>原样</translation>
    </message>
    <message>
        <source>Show the image as it is</source>
        <translation>按原样显示图像</translation>
    </message>
    <message>
        <source>Heat</source>
        <translation>热图</translation>
    </message>
    <message>
        <source>Show dark as black and purple, bright as yellow</source>
        <translation>暗处显示为黑色和紫色，亮处显示为黄色</translation>
    </message>
    <message>
        <source>Spectrum</source>
        <translation>光谱</translation>
    </message>
    <message>
        <source>Show dark as blue, bright as red</source>
        <translation>暗处显示为蓝色，亮处显示为红色</translation>
    </message>
    <message>
        <source>Limits</source>
        <translation>极限值</translation>
    </message>
    <message>
        <source>Show black as blue and white as red</source>
        <translation>黑色显示为蓝色，白色显示为红色</translation>
    </message>
    <message>
        <source>Full range</source>
        <translation>全范围</translation>
    </message>
    <message>
        <source>Show all values that the camera has</source>
        <translation>显示相机的全部取值</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>自动</translation>
    </message>
    <message>
        <source>Show the values that occur, from black to white</source>
        <translation>将出现的值从黑到白显示</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>手动</translation>
    </message>
    <message>
        <source>Choose which values are black and white</source>
        <translation>选择显示为黑色和白色的值</translation>
    </message>
    <message>
        <source>Histogram</source>
        <translation>直方图</translation>
    </message>
    <message>
        <source>Show how often each value occurs</source>
        <translation>显示各值出现的次数</translation>
    </message>
    <message>
        <source>Logarithmic histogram</source>
        <translation>对数直方图</translation>
    </message>
    <message>
        <source>Show rare values of the histogram, too</source>
        <translation>同时显示直方图中少见的值</translation>
    </message>
    <message>
        <source>Save image…</source>
        <translation>保存图像…</translation>
    </message>
    <message>
        <source>Save the image in the camera&apos;s full depth</source>
        <translation>以相机的完整位深保存图像</translation>
    </message>
    <message>
        <source>Save view…</source>
        <translation>保存视图…</translation>
    </message>
    <message>
        <source>Save what is seen</source>
        <translation>保存所见内容</translation>
    </message>
    <message>
        <source>Copy view</source>
        <translation>复制视图</translation>
    </message>
    <message>
        <source>Copy what is seen</source>
        <translation>复制所见内容</translation>
    </message>
    <message>
        <source>Record PNG files</source>
        <translation>录制为 PNG 文件</translation>
    </message>
    <message>
        <source>Write each image into a PNG file</source>
        <translation>将每幅图像写入一个 PNG 文件</translation>
    </message>
    <message>
        <source>Record raw files</source>
        <translation>录制为原始文件</translation>
    </message>
    <message>
        <source>Write the values of each image into a file</source>
        <translation>将每幅图像的值写入一个文件</translation>
    </message>
    <message>
        <source>Record video</source>
        <translation>录制视频</translation>
    </message>
    <message>
        <source>Write the images into a video</source>
        <translation>将图像写入视频</translation>
    </message>
    <message>
        <source>Recording folder…</source>
        <translation>录制文件夹…</translation>
    </message>
    <message>
        <source>Choose where recordings are written</source>
        <translation>选择录制内容的保存位置</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>停止录制</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>颜色</translation>
    </message>
    <message>
        <source>False colours</source>
        <translation>伪彩色</translation>
    </message>
    <message>
        <source>Black and white</source>
        <translation>黑白范围</translation>
    </message>
    <message>
        <source>Which values are black and white</source>
        <translation>显示为黑色和白色的值</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Save the image</source>
        <translation>保存图像</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>录制</translation>
    </message>
    <message>
        <source>Record the images</source>
        <translation>录制图像</translation>
    </message>
</context>
<context>
    <name>Host::CImageDock</name>
    <message>
        <source>Copied %1 × %2 pixels</source>
        <translation>已复制 %1 × %2 像素</translation>
    </message>
    <message>
        <source>Recording folder</source>
        <translation>录制文件夹</translation>
    </message>
    <message>
        <source>Image tools</source>
        <translation>图像工具</translation>
    </message>
</context>
<context>
    <name>Host::CImageSaver</name>
    <message>
        <source>Save image</source>
        <translation>保存图像</translation>
    </message>
    <message>
        <source>image-%1</source>
        <translation>image-%1</translation>
    </message>
    <message>
        <source>Save view</source>
        <translation>保存视图</translation>
    </message>
    <message>
        <source>view</source>
        <translation>view</translation>
    </message>
    <message>
        <source>PNG images (*.png)</source>
        <translation>PNG 图像 (*.png)</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>已保存 %1</translation>
    </message>
    <message>
        <source>Cannot save %1: %2</source>
        <translation>无法保存 %1：%2</translation>
    </message>
</context>
<context>
    <name>Host::CImageStatus</name>
    <message>
        <source>Image status</source>
        <translation>图像状态</translation>
    </message>
    <message>
        <source>Value under the cursor</source>
        <translation>光标处的值</translation>
    </message>
    <message>
        <source>Rates</source>
        <translation>速率</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>消息</translation>
    </message>
    <message>
        <source>%1 of %2 /s shown</source>
        <translation>每秒 %2 帧，显示 %1 帧</translation>
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
        <translation>图像</translation>
    </message>
    <message>
        <source>Arrow keys move the view, with Alt the pixel whose value is told, with Ctrl the rectangle, with Shift its corner.</source>
        <translation>方向键移动视图，加 Alt 移动取值像素，加 Ctrl 移动矩形，加 Shift 移动矩形的角。</translation>
    </message>
    <message>
        <source>No image</source>
        <translation>无图像</translation>
    </message>
</context>
<context>
    <name>Host::CModelPalette</name>
    <message>
        <source>Models</source>
        <translation>模型</translation>
    </message>
    <message>
        <source>Search models</source>
        <translation>搜索模型</translation>
    </message>
    <message>
        <source>Models by category</source>
        <translation>按类别列出的模型</translation>
    </message>
</context>
<context>
    <name>Host::CNodeTexts</name>
    <message>
        <source>received</source>
        <translation>接收</translation>
    </message>
    <message>
        <source>emitted</source>
        <translation>输出</translation>
    </message>
    <message>
        <source>dropped</source>
        <translation>丢弃</translation>
    </message>
    <message>
        <source>pending</source>
        <translation>等待</translation>
    </message>
    <message>
        <source>rate</source>
        <translation>速率</translation>
    </message>
    <message>
        <source>%1 fps</source>
        <translation>%1 fps</translation>
    </message>
    <message>
        <source>work</source>
        <translation>处理</translation>
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
        <translation>黑白范围</translation>
    </message>
    <message>
        <source>&amp;Black</source>
        <translation>黑(&amp;B)</translation>
    </message>
    <message>
        <source>&amp;White</source>
        <translation>白(&amp;W)</translation>
    </message>
    <message>
        <source>Value shown as black</source>
        <translation>显示为黑色的值</translation>
    </message>
    <message>
        <source>Value shown as white</source>
        <translation>显示为白色的值</translation>
    </message>
</context>
<context>
    <name>Host::CRecordBar</name>
    <message>
        <source>Recording</source>
        <translation>正在录制</translation>
    </message>
    <message>
        <source>Finishing, %1 waiting</source>
        <translation>正在完成，还有 %1 个等待</translation>
    </message>
    <message>
        <source>Recorded</source>
        <translation>已录制</translation>
    </message>
    <message>
        <source>Recording ended</source>
        <translation>录制已结束</translation>
    </message>
    <message>
        <source>Not recorded</source>
        <translation>未录制</translation>
    </message>
    <message>
        <source>Counts of the recording</source>
        <translation>录制计数</translation>
    </message>
    <message>
        <source>Folder or error of the recording</source>
        <translation>录制的文件夹或错误</translation>
    </message>
    <message>
        <source>Hide the recording&apos;s counts</source>
        <translation>隐藏录制计数</translation>
    </message>
    <message>
        <source>%1 received · %2 written · %3 dropped</source>
        <translation>接收 %1 · 写入 %2 · 丢弃 %3</translation>
    </message>
</context>
<context>
    <name>Host::CRecorder</name>
    <message>
        <source>No folder can be made in %1.</source>
        <translation>无法在 %1 中创建文件夹。</translation>
    </message>
</context>
<context>
    <name>Host::CSceneFiles</name>
    <message>
        <source>the scene has no camera</source>
        <translation>场景中没有相机</translation>
    </message>
    <message>
        <source>cannot open</source>
        <translation>无法打开</translation>
    </message>
    <message>
        <source>the scene is gone</source>
        <translation>场景已不存在</translation>
    </message>
    <message>
        <source>cannot import</source>
        <translation>无法导入</translation>
    </message>
    <message>
        <source>nothing of &apos;%1&apos; could be made</source>
        <translation>无法创建“%1”中的任何内容</translation>
    </message>
    <message>
        <source>the scene cannot be cleared</source>
        <translation>无法清空场景</translation>
    </message>
</context>
<context>
    <name>Host::CSceneTabs</name>
    <message>
        <source>Close %1</source>
        <translation>关闭 %1</translation>
    </message>
    <message>
        <source>Connect a camera at the left to see it, or open a scene.
Ctrl+K finds every command.</source>
        <translation>在左侧连接相机，或打开场景。
按 Ctrl+K 可查找所有命令。</translation>
    </message>
</context>
<context>
    <name>Host::CSettingField</name>
    <message>
        <source>Back to the default, %1</source>
        <translation>恢复默认值 %1</translation>
    </message>
    <message>
        <source>Default of %1</source>
        <translation>%1 的默认值</translation>
    </message>
    <message>
        <source>from %1</source>
        <translation>不小于 %1</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 至 %2</translation>
    </message>
    <message>
        <source>%1, odd</source>
        <translation>%1，奇数</translation>
    </message>
</context>
<context>
    <name>Host::CSettingsPanel</name>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>This node has no settings.</source>
        <translation>此节点没有设置。</translation>
    </message>
    <message>
        <source>Choose a node to see its settings.</source>
        <translation>选择节点以查看其设置。</translation>
    </message>
</context>
<context>
    <name>Host::CStatisticsTable</name>
    <message>
        <source>Grey</source>
        <translation>灰度</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>蓝</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>绿</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>红</translation>
    </message>
    <message>
        <source>Statistics of the rectangle</source>
        <translation>矩形统计</translation>
    </message>
    <message>
        <source>%1 × %2 at %3, %4</source>
        <translation>%1 × %2，位于 %3, %4</translation>
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
        <translation>图像视图</translation>
    </message>
    <message>
        <source>This is no image that can be shown.</source>
        <translation>这不是可以显示的图像。</translation>
    </message>
</context>
<context>
    <name>Host::CViewerDocks</name>
    <message>
        <source>Cameras</source>
        <translation>相机</translation>
    </message>
    <message>
        <source>Features</source>
        <translation>功能</translation>
    </message>
    <message>
        <source>Models</source>
        <translation>模型</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Faults</source>
        <translation>问题</translation>
    </message>
    <message>
        <source>History</source>
        <translation>历史</translation>
    </message>
    <message>
        <source>Before the first change</source>
        <translation>首次更改之前</translation>
    </message>
    <message>
        <source>History of changes</source>
        <translation>更改历史</translation>
    </message>
</context>
<context>
    <name>Host::CViewerMenus</name>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>Undo: %1</source>
        <translation>撤销：%1</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>重做</translation>
    </message>
    <message>
        <source>Redo: %1</source>
        <translation>重做：%1</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Cameras</source>
        <translation>相机(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Graph</source>
        <translation>图(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Images</source>
        <translation>图像(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>Open recent</source>
        <translation>最近打开的文件</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>颜色</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>New scene</source>
        <translation>新建场景</translation>
    </message>
    <message>
        <source>Open scene…</source>
        <translation>打开场景…</translation>
    </message>
    <message>
        <source>Save scene</source>
        <translation>保存场景</translation>
    </message>
    <message>
        <source>Save scene as…</source>
        <translation>场景另存为…</translation>
    </message>
    <message>
        <source>Import chain…</source>
        <translation>导入链…</translation>
    </message>
    <message>
        <source>Close scene</source>
        <translation>关闭场景</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>Show the camera&apos;s image</source>
        <translation>显示相机图像</translation>
    </message>
    <message>
        <source>Commands…</source>
        <translation>命令…</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>全屏</translation>
    </message>
    <message>
        <source>As the desktop</source>
        <translation>跟随桌面</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>浅色</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>深色</translation>
    </message>
</context>
<context>
    <name>Host::CViewerStatus</name>
    <message>
        <source>The window was held up for %1 ms</source>
        <translation>窗口停顿了 %1 毫秒</translation>
    </message>
    <message>
        <source>%1 held up the window for %2 ms</source>
        <translation>%1 使窗口停顿了 %2 毫秒</translation>
    </message>
    <message>
        <source>No camera connected</source>
        <translation>未连接相机</translation>
    </message>
    <message>
        <source>Cameras streaming: %1 of %2 · %3 frames/s</source>
        <translation>正在采集的相机：%1/%2 · %3 帧/秒</translation>
    </message>
</context>
<context>
    <name>Host::CViewerWindow</name>
    <message>
        <source>Show the camera&apos;s image</source>
        <translation>显示相机图像</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>场景 %1</translation>
    </message>
    <message>
        <source>There is no scene to open it in.</source>
        <translation>没有可用于打开的场景。</translation>
    </message>
    <message>
        <source>Opened %1</source>
        <translation>已打开 %1</translation>
    </message>
    <message>
        <source>There is no scene to save.</source>
        <translation>没有可保存的场景。</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>已保存 %1</translation>
    </message>
    <message>
        <source>A chain needs a scene: connect a camera first.</source>
        <translation>导入链需要场景：请先连接相机。</translation>
    </message>
    <message>
        <source>Imported %1</source>
        <translation>已导入 %1</translation>
    </message>
    <message>
        <source>Documents (*.json);;All files (*)</source>
        <translation>文档 (*.json);;所有文件 (*)</translation>
    </message>
    <message>
        <source>Open scene</source>
        <translation>打开场景</translation>
    </message>
    <message>
        <source>Import chain</source>
        <translation>导入链</translation>
    </message>
    <message>
        <source>Save scene</source>
        <translation>保存场景</translation>
    </message>
    <message>
        <source>%1 has changes that are not saved.</source>
        <translation>%1 有未保存的更改。</translation>
    </message>
    <message>
        <source>Halvex Viewer</source>
        <translation>Halvex 查看器</translation>
    </message>
    <message>
        <source>Scenes</source>
        <translation>场景</translation>
    </message>
</context>
<context>
    <name>Host::ModelText</name>
    <message>
        <source>Filters</source>
        <translation>滤波器</translation>
    </message>
    <message>
        <source>Sinks</source>
        <translation>输出</translation>
    </message>
    <message>
        <source>Sources</source>
        <translation>来源</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>工具</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>模糊</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>相机</translation>
    </message>
    <message>
        <source>Camera Source</source>
        <translation>相机来源</translation>
    </message>
    <message>
        <source>DecouplerVGR</source>
        <translation>VGR 解耦器</translation>
    </message>
    <message>
        <source>Edges</source>
        <translation>边缘</translation>
    </message>
    <message>
        <source>Histogram</source>
        <translation>直方图</translation>
    </message>
    <message>
        <source>Image View</source>
        <translation>图像视图</translation>
    </message>
    <message>
        <source>PNG Sink</source>
        <translation>PNG 输出</translation>
    </message>
    <message>
        <source>PNG files</source>
        <translation>PNG 文件</translation>
    </message>
    <message>
        <source>Raw Sink</source>
        <translation>RAW 输出</translation>
    </message>
    <message>
        <source>Raw files</source>
        <translation>RAW 文件</translation>
    </message>
    <message>
        <source>Threshold</source>
        <translation>阈值</translation>
    </message>
    <message>
        <source>To Image</source>
        <translation>转为图像</translation>
    </message>
    <message>
        <source>To image</source>
        <translation>转为图像</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>视频</translation>
    </message>
    <message>
        <source>Video Sink</source>
        <translation>视频输出</translation>
    </message>
    <message>
        <source>Frames per second</source>
        <translation>每秒帧数</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>级别</translation>
    </message>
    <message>
        <source>Method</source>
        <translation>方法</translation>
    </message>
    <message>
        <source>Most waiting</source>
        <translation>最大等待数</translation>
    </message>
    <message>
        <source>Parallelism</source>
        <translation>并行数</translation>
    </message>
    <message>
        <source>Policy</source>
        <translation>策略</translation>
    </message>
    <message>
        <source>Priority</source>
        <translation>优先级</translation>
    </message>
    <message>
        <source>Sink name</source>
        <translation>输出名称</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>大小</translation>
    </message>
    <message>
        <source>View name</source>
        <translation>视图名称</translation>
    </message>
    <message>
        <source>Write every</source>
        <translation>写入间隔</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>后台</translation>
    </message>
    <message>
        <source>Box</source>
        <translation>方框</translation>
    </message>
    <message>
        <source>Canny</source>
        <translation>Canny</translation>
    </message>
    <message>
        <source>Drop newest</source>
        <translation>丢弃最新</translation>
    </message>
    <message>
        <source>Drop oldest</source>
        <translation>丢弃最旧</translation>
    </message>
    <message>
        <source>Fixed</source>
        <translation>固定</translation>
    </message>
    <message>
        <source>Gaussian</source>
        <translation>高斯</translation>
    </message>
    <message>
        <source>Median</source>
        <translation>中值</translation>
    </message>
    <message>
        <source>Newest wins</source>
        <translation>最新优先</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>普通</translation>
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
        <translation>“后台”为记录保留一个核心，适合预览。</translation>
    </message>
    <message>
        <source>Canny draws thin lines, and follows an edge down to a third of &apos;level&apos;; Sobel draws all of it.</source>
        <translation>Canny 绘制细线，并沿边缘追踪到“级别”的三分之一；Sobel 绘制全部。</translation>
    </message>
    <message>
        <source>Gaussian keeps most detail, Box is fastest, Median removes single wrong pixels.</source>
        <translation>高斯保留最多细节，方框最快，中值去除个别错误像素。</translation>
    </message>
    <message>
        <source>Grey values above it become white. Otsu does not ask for it.</source>
        <translation>高于它的灰度值变为白色。“大津”不使用它。</translation>
    </message>
    <message>
        <source>How fast the video plays.</source>
        <translation>视频的播放速度。</translation>
    </message>
    <message>
        <source>How much the grey value must change.</source>
        <translation>灰度值须变化多少。</translation>
    </message>
    <message>
        <source>It writes one of so many frames; 0: as the run says, with --write-every.</source>
        <translation>每这么多帧写入一帧；0：按运行时的 --write-every。</translation>
    </message>
    <message>
        <source>Otsu finds the threshold that separates each image best, Fixed takes &apos;level&apos;.</source>
        <translation>“大津”为每幅图像找出最佳阈值，“固定”使用“级别”。</translation>
    </message>
    <message>
        <source>Pixels along each side of the square in which the change is looked for.</source>
        <translation>查找变化的正方形的边长（像素）。</translation>
    </message>
    <message>
        <source>Pixels along each side of the square that a pixel is smoothed over.</source>
        <translation>对像素进行平滑的正方形的边长（像素）。</translation>
    </message>
    <message>
        <source>The name of its folder. A chain gives it.</source>
        <translation>其文件夹的名称，由链给出。</translation>
    </message>
    <message>
        <source>What stands above the image.</source>
        <translation>显示在图像上方的名称。</translation>
    </message>
</context>
</TS>
