"""An update feed on a server of a test's own."""

import http.server
import json
import threading

DOWNLOAD = "https://downloads.nestlet.example/Companion.dmg"


class Feed:
    """Offers one build to whoever asks."""

    def __init__(self, build, version):
        self.build = build
        self.version = version
        self.answers = 0
        feed = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                answer = json.dumps({"build": feed.build, "version": feed.version,
                                     "url": DOWNLOAD}).encode()
                self.send_response(200)
                self.send_header("Content-Type", "application/json")
                self.send_header("Content-Length", str(len(answer)))
                self.end_headers()
                self.wfile.write(answer)
                feed.answers += 1

            def log_message(self, *_):
                pass

        self._server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self.address = f"http://127.0.0.1:{self._server.server_port}/feed.json"
        threading.Thread(target=self._server.serve_forever, daemon=True).start()

    def close(self):
        self._server.shutdown()
        self._server.server_close()
