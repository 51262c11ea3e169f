// A page that was opened from a folder may neither fetch the search's index nor start its worker. The index comes as a
// script (hooks.py), and this runs the worker's own script in a frame instead.
if (location.protocol === "file:") {
  window.Worker = class extends EventTarget {
    constructor(url) {
      super();
      const frame = document.createElement("iframe");
      frame.hidden = true;
      this.isReady = new Promise(resolve => {
        frame.onload = () => {
          const script = frame.contentDocument.createElement("script");
          frame.contentWindow.postMessage = data => this.dispatchEvent(new MessageEvent("message", { data }));
          script.src = url;
          script.onload = () => resolve(frame.contentWindow);
          frame.contentDocument.body.append(script);
        };
      });
      const append = () => document.body.append(frame);
      document.body ? append() : addEventListener("DOMContentLoaded", append);
    }

    postMessage(data) {
      this.isReady.then(window => window.dispatchEvent(new MessageEvent("message", { data })));
    }

    terminate() {}
  };
}
