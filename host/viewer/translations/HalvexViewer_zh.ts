<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh" sourcelanguage="en">
<context>
    <name>Host::CAravisCamera</name>
    <message>
        <source>camera &apos;%1&apos;: another program is using it (%2)</source>
        <translation>相机“%1”：正被其他程序使用（%2）</translation>
    </message>
    <message>
        <source>camera &apos;%1&apos;: %2</source>
        <translation>相机“%1”：%2</translation>
    </message>
    <message>
        <source>cannot read camera &apos;%1&apos;: %2</source>
        <translation>无法读取相机“%1”：%2</translation>
    </message>
    <message>
        <source>camera &apos;%1&apos; does not start: %2</source>
        <translation>相机“%1”无法启动：%2</translation>
    </message>
    <message>
        <source>camera &apos;%1&apos; gives no stream: %2</source>
        <translation>无法从相机“%1”获得数据流：%2</translation>
    </message>
    <message>
        <source>camera &apos;%1&apos; has gone: it no longer answers</source>
        <translation>相机“%1”已消失：不再响应</translation>
    </message>
</context>
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
    <message>
        <source>Images of the format %1 cannot be shown.</source>
        <translation>无法显示 %1 格式的图像。</translation>
    </message>
</context>
<context>
    <name>Host::CChainReader</name>
    <message>
        <source>no element has a camera as its source</source>
        <translation>没有以相机为来源的元素</translation>
    </message>
    <message>
        <source>the camera %1</source>
        <translation>相机 %1</translation>
    </message>
    <message>
        <source>a %1 of its own; frames come from the cameras of the run, named in %2</source>
        <translation>链中不能有自己的 %1；帧来自 %2 中指定的运行相机</translation>
    </message>
    <message>
        <source>%1 stands for any camera</source>
        <translation>%1 代表任意相机</translation>
    </message>
    <message>
        <source>%1 is the name of a camera</source>
        <translation>%1 是相机的名称</translation>
    </message>
    <message>
        <source>a second element %1, after that at %2</source>
        <translation>元素 %1 重复，前一个在 %2</translation>
    </message>
    <message>
        <source>no element is named %1, so that it is taken for a camera</source>
        <translation>没有名为 %1 的元素，因此将其视为相机</translation>
    </message>
    <message>
        <source>too many names are unknown to say whether a label was meant</source>
        <translation>未知名称过多，无法判断是否指的是标签</translation>
    </message>
    <message>
        <source>no element is named %1</source>
        <translation>没有名为 %1 的元素</translation>
    </message>
    <message>
        <source>no camera of the run and no element is named %1</source>
        <translation>运行的相机和元素中都没有名为 %1 的</translation>
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
    <name>Host::CDocumentCheck</name>
    <message>
        <source>%1, where an array (a chain) or an object (a scene) belongs</source>
        <translation>此处应为数组（链）或对象（场景），而不是%1</translation>
    </message>
</context>
<context>
    <name>Host::CFaultList</name>
    <message>
        <source>there are more faults than these %1</source>
        <translation>除这 %1 个以外还有更多问题</translation>
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
        <translation>说明</translation>
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
        <source>The text that was checked</source>
        <translation>被检查的文本</translation>
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
    <name>Host::CFeatures</name>
    <message>
        <source>%1 to %2 in steps of %3</source>
        <translation>%1 至 %2，步长 %3</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 至 %2</translation>
    </message>
    <message>
        <source>boolean, true, false</source>
        <translation>布尔值，true、false</translation>
    </message>
    <message>
        <source>integer</source>
        <translation>整数</translation>
    </message>
    <message>
        <source>integer, %1</source>
        <translation>整数，%1</translation>
    </message>
    <message>
        <source>float</source>
        <translation>浮点数</translation>
    </message>
    <message>
        <source>float, %1</source>
        <translation>浮点数，%1</translation>
    </message>
    <message>
        <source>the feature &apos;%1&apos; takes one of %2, not %3</source>
        <translation>功能“%1”的值应为 %2 之一，不能是 %3</translation>
    </message>
    <message>
        <source>the feature &apos;%1&apos; takes %2, not %3</source>
        <translation>功能“%1”的值应为%2，不能是 %3</translation>
    </message>
    <message>
        <source>In no category</source>
        <translation>未分类</translation>
    </message>
    <message>
        <source>it has no feature %1</source>
        <translation>没有功能 %1</translation>
    </message>
    <message>
        <source>the feature &apos;%1&apos; cannot be written now</source>
        <translation>功能“%1”当前无法更改</translation>
    </message>
    <message>
        <source>the feature &apos;%1&apos; is read only</source>
        <translation>功能“%1”为只读</translation>
    </message>
    <message>
        <source>the feature &apos;%1&apos; refuses %2: %3</source>
        <translation>无法将功能“%1”设为 %2：%3</translation>
    </message>
</context>
<context>
    <name>Host::CFileSource</name>
    <message>
        <source>cannot read %1: its pixels are %2; it takes 8 or 16 bits, grey or colour</source>
        <translation>无法读取 %1：其像素为 %2；应为 8 位或 16 位的灰度或彩色</translation>
    </message>
</context>
<context>
    <name>Host::CFileWriter</name>
    <message>
        <source>cannot write &apos;%1&apos;: %2</source>
        <translation>无法写入“%1”：%2</translation>
    </message>
</context>
<context>
    <name>Host::CFrameTable</name>
    <message>
        <source>cannot write &apos;%1&apos;: %2</source>
        <translation>无法写入“%1”：%2</translation>
    </message>
</context>
<context>
    <name>Host::CGLibError</name>
    <message>
        <source>no answer</source>
        <translation>没有响应</translation>
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
        <source>Choose the next connection</source>
        <translation>选择下一条连接</translation>
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
    <name>Host::CGraphCheck</name>
    <message>
        <source>%1 has no output port %2; it has none</source>
        <translation>%1 没有输出端口 %2；它没有任何输出端口</translation>
    </message>
    <message>
        <source>%1 has no output port %2; its only output port is 0</source>
        <translation>%1 没有输出端口 %2；其唯一的输出端口是 0</translation>
    </message>
    <message>
        <source>%1 has no output port %2; its output ports are 0 to %3</source>
        <translation>%1 没有输出端口 %2；其输出端口为 0 至 %3</translation>
    </message>
    <message>
        <source>%1 has no input port %2; it has none</source>
        <translation>%1 没有输入端口 %2；它没有任何输入端口</translation>
    </message>
    <message>
        <source>%1 has no input port %2; its only input port is 0</source>
        <translation>%1 没有输入端口 %2；其唯一的输入端口是 0</translation>
    </message>
    <message>
        <source>%1 has no input port %2; its input ports are 0 to %3</source>
        <translation>%1 没有输入端口 %2；其输入端口为 0 至 %3</translation>
    </message>
    <message>
        <source>no source reaches %1</source>
        <translation>没有来源的数据能到达 %1</translation>
    </message>
    <message>
        <source>no source reaches %1, and so not what lies behind it (1 node)</source>
        <translation>没有来源的数据能到达 %1，因而也无法到达其后的 1 个节点</translation>
    </message>
    <message>
        <source>no source reaches %1, and so not what lies behind it (%2 nodes)</source>
        <translation>没有来源的数据能到达 %1，因而也无法到达其后的 %2 个节点</translation>
    </message>
    <message>
        <source>%1 feeds %2 already, at %3: all data would come twice</source>
        <translation>%1 已在 %3 处连接到 %2：所有数据都会到达两次</translation>
    </message>
    <message>
        <source>%1 gives %2, and %3 takes %4</source>
        <translation>%1 输出 %2，而 %3 接收 %4</translation>
    </message>
    <message>
        <source>a converter from %1 to %2, where %3 gives %4, and %5 takes %6</source>
        <translation>转换器是从 %1 到 %2 的，而 %3 输出 %4，%5 接收 %6</translation>
    </message>
    <message>
        <source>a converter from %1 to %2 is not registered</source>
        <translation>未注册从 %1 到 %2 的转换器</translation>
    </message>
    <message>
        <source>the connection lacks its &apos;converter&apos;, which is registered</source>
        <translation>该连接缺少 &apos;converter&apos;，而相应的转换器已注册</translation>
    </message>
    <message>
        <source>put a %1 between</source>
        <translation>请在中间放一个 %1</translation>
    </message>
    <message>
        <source>no model makes the one of the other</source>
        <translation>没有能将前者变为后者的模型</translation>
    </message>
    <message>
        <source>%1 more</source>
        <comment>nodes</comment>
        <translation>另外 %1 个</translation>
    </message>
    <message>
        <source>a loop, with no decoupler in it: %1</source>
        <translation>不含解耦器的环路：%1</translation>
    </message>
    <message>
        <source>nothing is wired to %1</source>
        <translation>没有任何节点连接到 %1</translation>
    </message>
    <message>
        <source>nothing feeds input port %1 of %2</source>
        <translation>%2 的输入端口 %1 没有数据来源</translation>
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
    <name>Host::CImageFiles</name>
    <message>
        <source>it is a folder</source>
        <translation>这是一个文件夹</translation>
    </message>
    <message>
        <source>no image, or a broken one</source>
        <translation>不是图像，或图像已损坏</translation>
    </message>
    <message>
        <source>no image in the folder %1; it takes %2</source>
        <translation>文件夹 %1 中没有图像；支持 %2</translation>
    </message>
    <message>
        <source>no file matches %1</source>
        <translation>没有与 %1 匹配的文件</translation>
    </message>
    <message>
        <source>no such folder or file: %1</source>
        <translation>没有这样的文件夹或文件：%1</translation>
    </message>
    <message>
        <source>image %1</source>
        <comment>one that stands in for a camera</comment>
        <translation>图像 %1</translation>
    </message>
    <message>
        <source>%1 images of %2</source>
        <translation>%2 中的 %1 幅图像</translation>
    </message>
    <message>
        <source>cannot read %1: %2</source>
        <translation>无法读取 %1：%2</translation>
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
    <message>
        <source>the image has no PNG form</source>
        <translation>该图像无法转为 PNG</translation>
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
        <source>%1 of %2 frames/s shown</source>
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
    <name>Host::CJsonTree</name>
    <message>
        <source>an array</source>
        <translation>数组</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>对象</translation>
    </message>
    <message>
        <source>the string %1</source>
        <translation>字符串 %1</translation>
    </message>
    <message>
        <source>the number %1</source>
        <translation>数字 %1</translation>
    </message>
</context>
<context>
    <name>Host::CModelCatalogue</name>
    <message>
        <source>making %1</source>
        <translation>创建 %1</translation>
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
    <name>Host::CNodeReader</name>
    <message>
        <source>a %1 cannot be made</source>
        <translation>无法创建 %1</translation>
    </message>
    <message>
        <source>no model %1 is registered</source>
        <translation>未注册模型%1</translation>
    </message>
    <message>
        <source>asking for ports</source>
        <translation>查询端口</translation>
    </message>
    <message>
        <source>a sink needs a name for its folder: &quot;property&quot;: {&quot;sink_name&quot;: …}</source>
        <translation>输出节点需要其文件夹的名称：&quot;property&quot;: {&quot;sink_name&quot;: …}</translation>
    </message>
    <message>
        <source>the sink&apos;s name %1 makes no folder</source>
        <translation>输出节点的名称 %1 不能用作文件夹名</translation>
    </message>
    <message>
        <source>a second sink %1, after that at %2</source>
        <translation>输出节点 %1 重复，前一个在 %2</translation>
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
    <name>Host::CReconnectingCamera</name>
    <message>
        <source>%1; it did not come back for %2 s</source>
        <translation>%1；%2 秒内未恢复</translation>
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
        <source>the scene is gone</source>
        <translation>场景已不存在</translation>
    </message>
    <message>
        <source>nothing of &apos;%1&apos; could be made</source>
        <translation>无法创建“%1”中的任何内容</translation>
    </message>
    <message>
        <source>the scene cannot be cleared</source>
        <translation>无法清空场景</translation>
    </message>
    <message>
        <source>cannot open &apos;%1&apos;</source>
        <translation>无法打开“%1”</translation>
    </message>
    <message>
        <source>cannot import &apos;%1&apos;</source>
        <translation>无法导入“%1”</translation>
    </message>
</context>
<context>
    <name>Host::CSceneLoader</name>
    <message>
        <source>the scene is gone</source>
        <translation>场景已不存在</translation>
    </message>
    <message>
        <source>connections[%1]: the scene refuses it</source>
        <translation>connections[%1]：场景不接受它</translation>
    </message>
    <message>
        <source>making %1</source>
        <translation>创建 %1</translation>
    </message>
</context>
<context>
    <name>Host::CSceneReader</name>
    <message>
        <source>none of the nodes is a %1, the camera of the run</source>
        <translation>节点中没有代表运行相机的 %1</translation>
    </message>
    <message>
        <source>a unique %1 is not made of a document, and there is none to refer to</source>
        <translation>唯一的 %1 不会由文档创建，也没有可引用的</translation>
    </message>
    <message>
        <source>a %1 is a source without a camera; only a %2 stands for one</source>
        <translation>%1 是没有相机的来源；只有 %2 代表相机</translation>
    </message>
    <message>
        <source>a second %1, after that at %2; a scene has one camera</source>
        <translation>%1 重复，前一个在 %2；一个场景只有一台相机</translation>
    </message>
    <message>
        <source>%1 is no id; one is like %2</source>
        <translation>%1 不是 ID；ID 的形式如 %2</translation>
    </message>
    <message>
        <source>a second node of this id, after that at %1</source>
        <translation>此 ID 的节点重复，前一个在 %1</translation>
    </message>
    <message>
        <source>no node has the id %1</source>
        <translation>没有 ID 为 %1 的节点</translation>
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
</context>
<context>
    <name>Host::CSettingTexts</name>
    <message>
        <source>&apos;%1&apos; takes one of %2, not %3</source>
        <translation>“%1”的值应为 %2 之一，不能是 %3</translation>
    </message>
    <message>
        <source>&apos;%1&apos; takes text, not %2</source>
        <translation>“%1”的值应为文本，不能是 %2</translation>
    </message>
    <message>
        <source>&apos;%1&apos; takes %2, not %3</source>
        <translation>“%1”的值应为 %2，不能是 %3</translation>
    </message>
    <message>
        <source>&apos;%1&apos; takes %2, %3, not %4</source>
        <comment>name, type, range</comment>
        <translation>“%1”的值应为 %2，%3，不能是 %4</translation>
    </message>
    <message>
        <source>the sink&apos;s name %1 makes no folder</source>
        <translation>输出节点的名称 %1 不能用作文件夹名</translation>
    </message>
    <message>
        <source>&apos;%1&apos; cannot be set; a chain gives it</source>
        <translation>无法设置“%1”；它由链给出</translation>
    </message>
    <message>
        <source>it is gone</source>
        <translation>它已不存在</translation>
    </message>
    <message>
        <source>it has no settings</source>
        <translation>没有设置</translation>
    </message>
    <message>
        <source>it has no setting %1; it has %2</source>
        <translation>没有设置 %1；现有设置为 %2</translation>
    </message>
    <message>
        <source>it has no setting %1; %2 It has %3</source>
        <comment>%2 is a question</comment>
        <translation>没有设置 %1；%2现有设置为 %3</translation>
    </message>
</context>
<context>
    <name>Host::CSettingsCheck</name>
    <message>
        <source>making %1</source>
        <translation>创建 %1</translation>
    </message>
    <message>
        <source>unknown key %1, which %2 does not keep</source>
        <translation>未知的键 %1，%2 不会保留它</translation>
    </message>
    <message>
        <source>%1 for %2 is not taken; it stays %3</source>
        <translation>%2 不接受%1；它保持为 %3</translation>
    </message>
    <message>
        <source>%1 has no setting %2, nor any other</source>
        <translation>%1 没有设置 %2，也没有任何其他设置</translation>
    </message>
    <message>
        <source>%1 has no setting %2</source>
        <translation>%1 没有设置 %2</translation>
    </message>
    <message>
        <source>a value like %1</source>
        <translation>类似 %1 的值</translation>
    </message>
    <message>
        <source>%1, where %2 belongs</source>
        <translation>此处应为%2，而不是%1</translation>
    </message>
    <message>
        <source>%1, where a rate above 0 belongs</source>
        <translation>此处应为大于 0 的速率，而不是%1</translation>
    </message>
    <message>
        <source>%1 refuses %2</source>
        <translation>%1 不接受%2</translation>
    </message>
    <message>
        <source>%1 takes %2, not %3</source>
        <translation>%1 的值应为%2，不能是 %3</translation>
    </message>
    <message>
        <source>it stays %1</source>
        <translation>它保持为 %1</translation>
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
    <name>Host::CShapeCheck</name>
    <message>
        <source>a smaller number</source>
        <translation>较小的数字</translation>
    </message>
    <message>
        <source>a whole number</source>
        <translation>整数</translation>
    </message>
    <message>
        <source>true or false</source>
        <translation>true 或 false</translation>
    </message>
    <message>
        <source>an array</source>
        <translation>数组</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>对象</translation>
    </message>
    <message>
        <source>a number</source>
        <translation>数字</translation>
    </message>
    <message>
        <source>a string</source>
        <translation>字符串</translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <comment>types of JSON</comment>
        <translation>%1或%2</translation>
    </message>
    <message>
        <source>%1, where %2 belongs: %3</source>
        <translation>此处应为%2，而不是%1：%3</translation>
    </message>
    <message>
        <source>allowed are %1</source>
        <translation>允许的有 %1</translation>
    </message>
    <message>
        <source>unknown key %1</source>
        <translation>未知的键 %1</translation>
    </message>
    <message>
        <source>%1 lacks %2</source>
        <translation>%1缺少 %2</translation>
    </message>
    <message>
        <source>%1 is empty</source>
        <translation>%1为空</translation>
    </message>
    <message>
        <source>%1, where %2 belongs, from %3</source>
        <translation>此处应为%2（不小于 %3），而不是%1</translation>
    </message>
</context>
<context>
    <name>Host::CSharedCamera</name>
    <message>
        <source>camera &apos;%1&apos; has gone</source>
        <translation>相机“%1”已消失</translation>
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
    <name>Host::CSyntaxTexts</name>
    <message>
        <source>%1 is no quote of JSON, which has straight ones: &quot;</source>
        <translation>%1 不是 JSON 的引号，JSON 使用直引号：&quot;</translation>
    </message>
    <message>
        <source>U+%1 looks like a blank, and is none of JSON</source>
        <translation>U+%1 看似空格，但不是 JSON 的空格</translation>
    </message>
    <message>
        <source>the document ends within the array that begins at %1</source>
        <translation>文档在始于 %1 的数组中结束</translation>
    </message>
    <message>
        <source>the document ends within the object that begins at %1</source>
        <translation>文档在始于 %1 的对象中结束</translation>
    </message>
    <message>
        <source>&apos;]&apos; belongs here, to close the array that begins at %1</source>
        <translation>此处应为 &apos;]&apos;，以结束始于 %1 的数组</translation>
    </message>
    <message>
        <source>&apos;}&apos; belongs here, to close the object that begins at %1</source>
        <translation>此处应为 &apos;}&apos;，以结束始于 %1 的对象</translation>
    </message>
    <message>
        <source>JSON has strings in double quotes only</source>
        <translation>JSON 的字符串只用双引号</translation>
    </message>
    <message>
        <source>JSON has no comments</source>
        <translation>JSON 没有注释</translation>
    </message>
    <message>
        <source>a value is missing before %1</source>
        <translation>%1 之前缺少值</translation>
    </message>
    <message>
        <source>%1 is no number</source>
        <translation>%1 不是数字</translation>
    </message>
    <message>
        <source>%1 is no value</source>
        <translation>%1 不是值</translation>
    </message>
    <message>
        <source>strings stand in double quotes</source>
        <translation>字符串要用双引号括起</translation>
    </message>
    <message>
        <source>a key stands in double quotes</source>
        <translation>键要用双引号括起</translation>
    </message>
    <message>
        <source>a key is missing before %1</source>
        <translation>%1 之前缺少键</translation>
    </message>
    <message>
        <source>a number does not begin with 0</source>
        <translation>数字不以 0 开头</translation>
    </message>
    <message>
        <source>&apos;,&apos; or &apos;]&apos; is missing before this</source>
        <translation>此处之前缺少 &apos;,&apos; 或 &apos;]&apos;</translation>
    </message>
    <message>
        <source>&apos;,&apos; or &apos;}&apos; is missing before this</source>
        <translation>此处之前缺少 &apos;,&apos; 或 &apos;}&apos;</translation>
    </message>
    <message>
        <source>a string ends on the line where it begins; a line break in it is written \n</source>
        <translation>字符串须在开始的行内结束；其中的换行写作 \n</translation>
    </message>
    <message>
        <source>a control character in a string is written \u%1</source>
        <translation>字符串中的控制字符写作 \u%1</translation>
    </message>
    <message>
        <source>four digits belong behind \u, each from 0 to 9 or a to f</source>
        <translation>\u 之后应有四位数字，每位为 0 至 9 或 a 至 f</translation>
    </message>
    <message>
        <source>half a letter; \ud800 to \udfff stand in pairs</source>
        <translation>只有半个字符；\ud800 至 \udfff 须成对出现</translation>
    </message>
    <message>
        <source>no such escape; a backslash itself is written \\</source>
        <translation>没有这样的转义；反斜杠本身写作 \\</translation>
    </message>
    <message>
        <source>the document is empty</source>
        <translation>文档为空</translation>
    </message>
    <message>
        <source>&apos;/&apos; is nothing that JSON has</source>
        <translation>JSON 中没有 &apos;/&apos;</translation>
    </message>
    <message>
        <source>JSON has no comments, and this one has no end</source>
        <translation>JSON 没有注释，而且此注释没有结尾</translation>
    </message>
    <message>
        <source>the document ends within a string</source>
        <translation>文档在字符串中结束</translation>
    </message>
    <message>
        <source>something stands behind the end of the document</source>
        <translation>文档结尾之后还有内容</translation>
    </message>
    <message>
        <source>&apos;:&apos; is missing behind the key</source>
        <translation>键之后缺少 &apos;:&apos;</translation>
    </message>
    <message>
        <source>the number is too large</source>
        <translation>数字过大</translation>
    </message>
    <message>
        <source>a digit belongs behind the point of a number</source>
        <translation>小数点之后应有数字</translation>
    </message>
    <message>
        <source>a digit belongs behind the &apos;e&apos; of a number</source>
        <translation>数字的 &apos;e&apos; 之后应有数字</translation>
    </message>
    <message>
        <source>this is no JSON</source>
        <translation>这不是 JSON</translation>
    </message>
</context>
<context>
    <name>Host::CTreeBuilder</name>
    <message>
        <source>%1 is no JSON: numbers are finite there</source>
        <translation>%1 不是 JSON：JSON 的数字是有限的</translation>
    </message>
    <message>
        <source>arrays and objects nest too deep</source>
        <translation>数组和对象嵌套过深</translation>
    </message>
    <message>
        <source>a comma behind the last item is no JSON</source>
        <translation>JSON 的最后一项之后不能有逗号</translation>
    </message>
    <message>
        <source>a comma behind the last member is no JSON</source>
        <translation>JSON 的最后一个成员之后不能有逗号</translation>
    </message>
    <message>
        <source>more than %1 values</source>
        <translation>值超过 %1 个</translation>
    </message>
    <message>
        <source>JSON has no comments</source>
        <translation>JSON 没有注释</translation>
    </message>
    <message>
        <source>a second key %1, after that at %2; only one would count</source>
        <translation>键 %1 重复，前一个在 %2；只有一个有效</translation>
    </message>
</context>
<context>
    <name>Host::CVideoFile</name>
    <message>
        <source>the image is empty</source>
        <translation>图像为空</translation>
    </message>
    <message>
        <source>an image is %1, the video %2</source>
        <comment>width x height</comment>
        <translation>图像为 %1，视频为 %2</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>设备上没有剩余空间</translation>
    </message>
    <message>
        <source>the encoder refuses it</source>
        <translation>编码器不接受</translation>
    </message>
    <message>
        <source>it did not become complete; is the disk full?</source>
        <translation>未能完整写入；磁盘是否已满？</translation>
    </message>
</context>
<context>
    <name>Host::CVideoReader</name>
    <message>
        <source>video %1</source>
        <comment>one that stands in for a camera</comment>
        <translation>视频 %1</translation>
    </message>
    <message>
        <source>cannot read the video %1: %2</source>
        <translation>无法读取视频 %1：%2</translation>
    </message>
    <message>
        <source>cannot read the video %1: no video, or one in a format that is not known here</source>
        <translation>无法读取视频 %1：不是视频，或格式不受支持</translation>
    </message>
    <message>
        <source>no frame of the video %1 can be read</source>
        <translation>无法读取视频 %1 的任何帧</translation>
    </message>
    <message>
        <source>the video %1 ends after %2 of %3 frames: a part of it is missing or broken</source>
        <translation>视频 %1 在 %3 帧中的第 %2 帧后结束：有部分缺失或损坏</translation>
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
        <source>Previous scene</source>
        <translation>上一个场景</translation>
    </message>
    <message>
        <source>Next scene</source>
        <translation>下一个场景</translation>
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
    <name>Host::CWordFinder</name>
    <message>
        <source>%1, %2</source>
        <comment>names that are listed</comment>
        <translation>%1、%2</translation>
    </message>
    <message>
        <source>there is only %1</source>
        <translation>只有 %1</translation>
    </message>
    <message>
        <source>there are %1</source>
        <translation>现有 %1</translation>
    </message>
    <message>
        <source>%1 and %2</source>
        <comment>names that are listed</comment>
        <translation>%1 和 %2</translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <comment>names that are listed</comment>
        <translation>%1 或 %2</translation>
    </message>
</context>
<context>
    <name>Host::ClosestWords</name>
    <message>
        <source>did you mean %1?</source>
        <translation>您是否想用%1？</translation>
    </message>
    <message>
        <source>did you mean %1 or %2?</source>
        <translation>您是否想用%1或%2？</translation>
    </message>
    <message>
        <source>did you mean %1 or %2 or %3?</source>
        <translation>您是否想用%1、%2或%3？</translation>
    </message>
    <message>
        <source>%1; %2</source>
        <comment>what is wrong; a question or a hint</comment>
        <translation>%1；%2</translation>
    </message>
</context>
<context>
    <name>Host::ConnectionText</name>
    <message>
        <source>%1 to %2</source>
        <comment>types of data</comment>
        <translation>%1 转 %2</translation>
    </message>
</context>
<context>
    <name>Host::Device</name>
    <message>
        <source>cannot open camera &apos;%1&apos;: %2</source>
        <translation>无法打开相机“%1”：%2</translation>
    </message>
</context>
<context>
    <name>Host::DocumentFile</name>
    <message>
        <source>%1: it has 1 error:
%2</source>
        <comment>what cannot be done</comment>
        <translation>%1：有 1 个错误：
%2</translation>
    </message>
    <message>
        <source>%1: it has %2 errors:
%3</source>
        <comment>what cannot be done</comment>
        <translation>%1：有 %2 个错误：
%3</translation>
    </message>
</context>
<context>
    <name>Host::FaultReport</name>
    <message>
        <source>error</source>
        <translation>错误</translation>
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
        <translation>大于 64 MiB</translation>
    </message>
    <message>
        <source>cannot read &apos;%1&apos;: %2</source>
        <translation>无法读取“%1”：%2</translation>
    </message>
</context>
<context>
    <name>Host::JsonText</name>
    <message>
        <source>the file is %1; save it as UTF-8, which is what JSON is</source>
        <translation>文件是 %1；JSON 使用 UTF-8，请另存为 UTF-8</translation>
    </message>
    <message>
        <source>these bytes are no UTF-8</source>
        <translation>这些字节不是 UTF-8</translation>
    </message>
    <message>
        <source>a zero byte, which no text has</source>
        <translation>文本中不应有的零字节</translation>
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
        <translation>每这么多帧写入一帧；0：按运行时的设定。</translation>
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
<context>
    <name>Host::Output</name>
    <message>
        <source>cannot write &apos;%1&apos;: %2</source>
        <translation>无法写入“%1”：%2</translation>
    </message>
    <message>
        <source>cannot make the folder &apos;%1&apos;: %2</source>
        <translation>无法创建文件夹“%1”：%2</translation>
    </message>
    <message>
        <source>Not a regular file</source>
        <translation>不是普通文件</translation>
    </message>
</context>
<context>
    <name>Host::SFault</name>
    <message>
        <source>A document can be read.</source>
        <translation>文档可以读取。</translation>
    </message>
    <message>
        <source>A document is UTF-8.</source>
        <translation>文档使用 UTF-8。</translation>
    </message>
    <message>
        <source>A document is JSON.</source>
        <translation>文档是 JSON。</translation>
    </message>
    <message>
        <source>A value has the JSON type that belongs there.</source>
        <translation>值具有该处应有的 JSON 类型。</translation>
    </message>
    <message>
        <source>A value is one of those that are allowed.</source>
        <translation>值是允许的值之一。</translation>
    </message>
    <message>
        <source>Keys are known: one that nobody reads does nothing.</source>
        <translation>键是已知的：无人读取的键不起作用。</translation>
    </message>
    <message>
        <source>A key stands only once in an object.</source>
        <translation>键在一个对象中只出现一次。</translation>
    </message>
    <message>
        <source>What is needed is there.</source>
        <translation>必需的内容都存在。</translation>
    </message>
    <message>
        <source>A model is registered.</source>
        <translation>模型已注册。</translation>
    </message>
    <message>
        <source>A model can be made from the document.</source>
        <translation>模型可以由文档创建。</translation>
    </message>
    <message>
        <source>A model has the setting and takes its value.</source>
        <translation>模型有该设置并接受其值。</translation>
    </message>
    <message>
        <source>A label or an id is that of an element or a node.</source>
        <translation>标签或 ID 属于某个元素或节点。</translation>
    </message>
    <message>
        <source>Labels and ids are different.</source>
        <translation>标签和 ID 互不相同。</translation>
    </message>
    <message>
        <source>A connection joins ports that exist.</source>
        <translation>连接的端口均存在。</translation>
    </message>
    <message>
        <source>The types of connected ports agree, or are converted.</source>
        <translation>相连端口的类型一致或经过转换。</translation>
    </message>
    <message>
        <source>A source is a camera or an element.</source>
        <translation>来源是相机或元素。</translation>
    </message>
    <message>
        <source>Something is wired to each camera.</source>
        <translation>每台相机都有连接。</translation>
    </message>
    <message>
        <source>The data of a source reaches each node.</source>
        <translation>每个节点都能收到来源的数据。</translation>
    </message>
    <message>
        <source>Connections lead in a circle only through a decoupler.</source>
        <translation>连接只有经过解耦器才能成环。</translation>
    </message>
    <message>
        <source>Two ports are connected only once.</source>
        <translation>两个端口之间只连接一次。</translation>
    </message>
    <message>
        <source>The name of a sink makes a folder of its own.</source>
        <translation>输出节点的名称对应其自己的文件夹。</translation>
    </message>
</context>
<context>
    <name>Host::SchemaTitle</name>
    <message>
        <source>a camera or a label</source>
        <translation>相机或标签</translation>
    </message>
    <message>
        <source>a connection</source>
        <translation>连接</translation>
    </message>
    <message>
        <source>a converter</source>
        <translation>转换器</translation>
    </message>
    <message>
        <source>a data type</source>
        <translation>数据类型</translation>
    </message>
    <message>
        <source>a label</source>
        <translation>标签</translation>
    </message>
    <message>
        <source>a label, or an object with one</source>
        <translation>标签，或带标签的对象</translation>
    </message>
    <message>
        <source>a model</source>
        <translation>模型</translation>
    </message>
    <message>
        <source>a node</source>
        <translation>节点</translation>
    </message>
    <message>
        <source>a scene</source>
        <translation>场景</translation>
    </message>
    <message>
        <source>a unique name</source>
        <translation>唯一名称</translation>
    </message>
    <message>
        <source>an element</source>
        <translation>元素</translation>
    </message>
    <message>
        <source>an id</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>an input port</source>
        <translation>输入端口</translation>
    </message>
    <message>
        <source>an output port</source>
        <translation>输出端口</translation>
    </message>
    <message>
        <source>arrays of what it feeds</source>
        <translation>输出目标的数组</translation>
    </message>
    <message>
        <source>the connections</source>
        <translation>连接列表</translation>
    </message>
    <message>
        <source>the elements of a chain</source>
        <translation>链的元素</translation>
    </message>
    <message>
        <source>the id of a type</source>
        <translation>类型的 ID</translation>
    </message>
    <message>
        <source>the id of the node that feeds</source>
        <translation>输出方节点的 ID</translation>
    </message>
    <message>
        <source>the id of the node that is fed</source>
        <translation>输入方节点的 ID</translation>
    </message>
    <message>
        <source>the label</source>
        <translation>标签</translation>
    </message>
    <message>
        <source>the name of a model</source>
        <translation>模型的名称</translation>
    </message>
    <message>
        <source>the nodes</source>
        <translation>节点列表</translation>
    </message>
    <message>
        <source>the schema, for editors</source>
        <translation>供编辑器使用的模式</translation>
    </message>
    <message>
        <source>the settings of the model</source>
        <translation>模型的设置</translation>
    </message>
    <message>
        <source>the short name of a type</source>
        <translation>类型的短名称</translation>
    </message>
    <message>
        <source>the sources of each input port</source>
        <translation>各输入端口的来源</translation>
    </message>
    <message>
        <source>the sources of one input port</source>
        <translation>一个输入端口的来源</translation>
    </message>
    <message>
        <source>what it feeds</source>
        <translation>输出目标</translation>
    </message>
    <message>
        <source>whether it is unique</source>
        <translation>是否唯一</translation>
    </message>
</context>
<context>
    <name>Host::SettingProperty</name>
    <message>
        <source>true or false</source>
        <translation>true 或 false</translation>
    </message>
    <message>
        <source>a whole number</source>
        <translation>整数</translation>
    </message>
    <message>
        <source>a number</source>
        <translation>数字</translation>
    </message>
    <message>
        <source>a string</source>
        <translation>字符串</translation>
    </message>
    <message>
        <source>one of %1</source>
        <translation>%1 之一</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>a type and its range</comment>
        <translation>%1，%2</translation>
    </message>
</context>
<context>
    <name>Host::SettingRange</name>
    <message>
        <source>from %1</source>
        <translation>不小于 %1</translation>
    </message>
    <message>
        <source>%1 to %2, odd</source>
        <translation>%1 至 %2，奇数</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 至 %2</translation>
    </message>
</context>
<context>
    <name>Host::Shown</name>
    <message>
        <source>&apos;%1&apos;</source>
        <translation>“%1”</translation>
    </message>
</context>
<context>
    <name>Host::WritePng</name>
    <message>
        <source>the image has no PNG form</source>
        <translation>该图像无法转为 PNG</translation>
    </message>
</context>
<context>
    <name>Host::attempt</name>
    <message>
        <source>%1 fails</source>
        <translation>%1 失败</translation>
    </message>
    <message>
        <source>%1 throws: %2</source>
        <translation>%1 引发异常：%2</translation>
    </message>
    <message>
        <source>%1 throws</source>
        <translation>%1 引发异常</translation>
    </message>
</context>
</TS>
