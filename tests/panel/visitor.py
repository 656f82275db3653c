"""A client of the panel without a browser."""
import http.client
import json
from urllib.parse import urlsplit


class Visitor:
    """Whoever has opened the panel by its address."""

    def __init__(self, address):
        self.host = urlsplit(address).netloc
        answer = self.ask('GET', '/?' + urlsplit(address).query, None, {})
        self.cookie = answer.getheader('Set-Cookie').split(';')[0]

    def ask(self, method, path, body, headers):
        connection = http.client.HTTPConnection(self.host, timeout=60)
        connection.request(method, path, body, headers)
        return connection.getresponse()

    def get(self, path):
        """The answer, of which nothing has been read yet but its head."""
        return self.ask('GET', path, None, {'Cookie': self.cookie})

    def post(self, path, **body):
        return self.ask('POST', path, json.dumps(body), {
            'Cookie': self.cookie, 'Origin': 'http://' + self.host, 'Content-Type': 'application/json'})
