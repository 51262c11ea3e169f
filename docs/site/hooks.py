"""What the site does beyond its theme."""

import json
import pathlib
import re

CODE = re.compile(r"<code>(\w+)(?:::\w+\(\))?</code>")


def on_page_content(html, page, config, files):
    """The first mention of a class on a page leads to its description in the reference."""
    reference = pathlib.Path(config["docs_dir"]) / "reference"
    up = "../" * page.url.count("/")
    seen = set()

    def link(match):
        name = match[1]
        files = (f"{kind}Plugin_1_1Halvex_1_1{name}.html" for kind in ("class", "struct"))
        file = next((file for file in files if (reference / file).is_file()), None)
        if not file or name in seen:
            return match[0]
        seen.add(name)
        return f'<a href="{up}reference/{file}">{match[0]}</a>'

    parts = re.split(r"(<a .*?</a>|<h\d.*?</h\d>)", html, flags=re.DOTALL)  # neither within links nor in headings
    return "".join(part if part.startswith(("<a ", "<h")) else CODE.sub(link, part) for part in parts)


def on_post_build(config):
    """The search's index as a script: a page that was opened from a folder may not fetch it."""
    folder = pathlib.Path(config["site_dir"]) / "search"
    index = json.loads((folder / "search_index.json").read_text(encoding="utf-8"))
    script = f"var __search = {{index: Promise.resolve({json.dumps(index)})}};\n"
    (folder / "index.js").write_text(script, encoding="utf-8")
